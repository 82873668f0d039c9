// The edits of wave files, each under a note in a folder of the program's own.
#pragma once

#include "backends/sound/edits/edit_run.h"

#include "platform/edits.h"
#include "platform/files.h"

#include <memory>
#include <utility>
#include <vector>

namespace vantora {

class WaveEdits final : public Edits {
 public:
  static constexpr const wchar_t* kFolder = L"C:\\WINDOWS\\edits";
  // Small enough to stay in the processor's own memory between reading and writing.
  static constexpr std::int64_t kBlockBytes = 1 << 17;

  WaveEdits(Dateien& dateien, RampFunction ramp, std::int64_t blockBytes = kBlockBytes)
      : dateien_(dateien), ramp_(std::move(ramp)), blockBytes_(blockBytes) {}

  void Apply(const Edit& edit) override;
  void EndRun() override;
  bool Ready(const Text& file) override;
  void Lend(const std::vector<Silence>& silences) override;
  bool Lent() const override { return !loan_.empty(); }
  std::vector<Text> TakeBack() override;
  void Forget() override;
  bool Needs(const Text& file) const override;
  MendedEdits Mend() override;

 private:
  using Note = std::unique_ptr<EditNote>;

  Note Begin(EditPlan plan, std::int64_t blockBytes) {
    return EditNote::Make(dateien_, kFolder, std::move(plan), blockBytes);
  }
  EditPlan LoanPlan(const Silence& silence);
  EditRun::State Settle(Note note);  // to its end or back to its start; an error keeps it
  void Drop(Note note);
  void Conclude(Note note);  // all of it is done
  void MendNote(Note note, MendedEdits& mended);

  Dateien& dateien_;
  RampFunction ramp_;
  std::int64_t blockBytes_;
  std::vector<Note> loan_;  // one for each file
  std::vector<Note> open_;  // edits that could not be finished yet
  bool running_ = false;    // a run with a report
  Note run_;                // of its last edit that is done
};

}  // namespace vantora
