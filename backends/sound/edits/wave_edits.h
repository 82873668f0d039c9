// Edits of wave files. Each edit is described by a note in a folder of the program.
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
  // Fits the processor's cache between reading and writing.
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
  EditRun::State Settle(Note note);  // completes or undoes the edit; keeps the note on an error
  void Drop(Note note);
  void Conclude(Note note);  // for an edit that is done
  void MendNote(Note note, MendedEdits& mended);

  Dateien& dateien_;
  RampFunction ramp_;
  std::int64_t blockBytes_;
  std::vector<Note> loan_;  // one for each file
  std::vector<Note> open_;  // of edits that are not completed yet
  bool running_ = false;    // a run with a report is in progress
  Note run_;                // of the last finished edit of the run
};

}  // namespace vantora
