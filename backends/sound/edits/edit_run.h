// Carries out the edit of a note, from the start or from where a killed program has stopped.
#pragma once

#include "backends/sound/edits/edit_note.h"

#include "platform/files.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>

namespace vantora {

// Multiplies `frames` stereo frames by a gain that is `start` at frame 0 of the range and changes
// by `slope` with each frame. `first` is the number of the first frame in `samples`.
using RampFunction = std::function<void(std::int16_t* samples, std::size_t frames,
                                        std::int64_t first, double start, double slope)>;

class EditRun {
 public:
  enum class State {
    Finished,   // all files are done
    NotBegun,   // no file has changed, or changes were undone
    Changed,    // a file of the edit was changed or removed by others
    MediumAway  // the folder of a file is on another medium or missing
  };

  EditRun(Dateien& dateien, const RampFunction& ramp, EditNote& note)
      : dateien_(dateien), ramp_(ramp), note_(note), block_(note.BlockBytes()) {}

  // Does one file from its beginning.
  void Start(std::size_t file, const std::function<void(int percent)>& progress = {});
  // True once a wave has been changed, beyond reserved space. From then on Finish completes the
  // edit and cannot undo it.
  bool Begun() const { return begun_; }
  // Completes or undoes the edit. Checks first whether that is possible, and changes nothing
  // otherwise. Leaves the note unchanged on an error, so that it can be tried again.
  State Finish();

 private:
  using Record = EditNote::Record;

  void Run(std::size_t file, const Record* from, const std::function<void(int percent)>& progress);
  void RunStep(const PlanStep& step, Record& record, bool again);
  void DoBlock(const PlanStep& step, const Record& record);
  void MoveFar(const PlanStep& step, const Record& record);
  void Fill(std::int64_t at, std::int64_t bytes);
  void CopyFromHelper(const PlanStep& step, const Record& record);
  void Compute(const PlanStep& step, Record& record);  // result in block_
  void CloseWave(std::size_t file);

  State Look(std::size_t file, const Record* from);
  bool MayBeBlock(const PlanFile& plan, const Record& record, const DateiStand& now);
  State LookAtHelpers(const PlanFile& plan,
                      std::size_t step);  // that this step and later ones use
  bool IsReserved(const PlanFile& plan, const Record& record, const DateiStand& now);
  State Find(const Text& path, const DateiStand& known, const Text& medium, DateiStand& now);
  State UndoReserve(std::size_t file);
  std::optional<DateiStand> Before(std::size_t file);  // nothing: the file before it is not done
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
