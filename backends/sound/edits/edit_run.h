// Carries out what a note says, from its start or from where a killed program has come to.
#pragma once

#include "backends/sound/edits/edit_note.h"

#include "platform/files.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>

namespace vantora {

// The samples of `frames` stereo frames times a gain that is `start` at frame 0 and changes by
// `slope` with each one; `first` is the number of the first of the frames.
using RampFunction = std::function<void(std::int16_t* samples, std::size_t frames,
                                        std::int64_t first, double start, double slope)>;

class EditRun {
 public:
  enum class State {
    Finished,   // all files are done
    NotBegun,   // no file has changed, or none any more
    Changed,    // others have changed or removed a file, or one that must be read
    MediumAway  // no folder is where the file should be
  };

  EditRun(Dateien& dateien, const RampFunction& ramp, EditNote& note)
      : dateien_(dateien), ramp_(ramp), note_(note), block_(note.BlockBytes()) {}

  // One file from its beginning, as it stands now.
  void Start(std::size_t file, const std::function<void(int percent)>& progress = {});
  // More than room has been taken: from here on, Finish goes forwards.
  bool Begun() const { return begun_; }
  // The rest of the edit, as far as it goes. Looks first whether it can be done, and changes
  // nothing otherwise. An error leaves the note as it is, for another try.
  State Finish();

 private:
  using Record = EditNote::Record;

  void Run(std::size_t file, const Record* from, const std::function<void(int percent)>& progress);
  void RunStep(const PlanStep& step, Record& record, bool again);
  void DoBlock(const PlanStep& step, const Record& record);
  void MoveFar(const PlanStep& step, const Record& record);
  void Fill(std::int64_t at, std::int64_t bytes);
  void CopyFromHelper(const PlanStep& step, const Record& record);
  void Compute(const PlanStep& step, Record& record);  // into the block
  void CloseWave(std::size_t file);

  State Look(std::size_t file, const Record* from);
  bool MayBeBlock(const PlanFile& plan, const Record& record, const DateiStand& now);
  State LookAtHelpers(const PlanFile& plan,
                      std::size_t step);  // that this step and later ones read
  bool IsReserved(const PlanFile& plan, const Record& record, const DateiStand& now);
  State Find(const Text& path, const DateiStand& known, const Text& medium, DateiStand& now);
  State UndoReserve(std::size_t file);
  std::optional<DateiStand> Before(std::size_t file);  // nothing: not before another one is done
  static std::int64_t Place(const PlanStep& step, std::int64_t start, const Record& record);

  Dateien& dateien_;
  const RampFunction& ramp_;
  EditNote& note_;
  EditNote::Block block_;
  std::unique_ptr<Datei> wave_;
  std::map<std::uint32_t, std::unique_ptr<Datei>> helpers_;
  std::int64_t written_ = 0, toWrite_ = 0;  // for the progress
  int told_ = -1;
  bool begun_ = false;
  const std::function<void(int percent)>* progress_ = nullptr;
};

}  // namespace vantora
