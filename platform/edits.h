// Changes wave files in place, so that a kill of the program leaves no change half done. Before a
// change begins, a note on the disk describes it completely. During the change, the note holds each
// block that could not be computed again. The next start of the program completes the changes of
// killed programs. Power failures are not covered. All calls are from the interface thread.
//
// Offsets and lengths are in bytes of sound, counted from its first byte. Chunks after the sound
// are kept, and are moved when the sound's length changes. Failures are Laufzeitfehler with the
// numbers of platform/files.h.
#pragma once

#include "platform/laufzeitfehler.h"
#include "platform/text.h"

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

namespace vantora {

// One operation on a range of a wave. The range must lie within the sound as it is after the edit.
struct EditStep {
  enum class Kind : std::uint8_t { Move, Copy, Zero, Ramp, Scale, Mix };

  Kind What = Kind::Zero;
  std::int64_t At = 0;  // start of the range that is written
  std::int64_t Bytes = 0;
  std::int64_t From = 0;  // source offset. Move: in the same sound; Copy: in the sound of Source
  Text Source;            // Copy: another wave file, which must not change meanwhile
  // Ramp: frame k of the range is multiplied by Start + k * Slope, a gain from 0 to 1. Scale: every
  // 16-bit sample is multiplied by Start. Both round to nearest, ties to even.
  double Start = 1, Slope = 0;
  std::vector<char> Samples;  // Mix: the result, mixed in memory; the note keeps it
};

inline EditStep MoveStep(std::int64_t from, std::int64_t at, std::int64_t bytes) {
  return {EditStep::Kind::Move, at, bytes, from, {}, 1, 0, {}};
}
inline EditStep CopyStep(Text source, std::int64_t from, std::int64_t at, std::int64_t bytes) {
  return {EditStep::Kind::Copy, at, bytes, from, std::move(source), 1, 0, {}};
}
inline EditStep ZeroStep(std::int64_t at, std::int64_t bytes) {
  return {EditStep::Kind::Zero, at, bytes, 0, {}, 1, 0, {}};
}
inline EditStep RampStep(std::int64_t at, std::int64_t bytes, double start, double slope) {
  return {EditStep::Kind::Ramp, at, bytes, 0, {}, start, slope, {}};
}
inline EditStep ScaleStep(std::int64_t at, std::int64_t bytes, double factor) {
  return {EditStep::Kind::Scale, at, bytes, 0, {}, factor, 0, {}};
}
inline EditStep MixStep(std::int64_t at, std::vector<char> samples) {
  const auto bytes = static_cast<std::int64_t>(samples.size());
  return {EditStep::Kind::Mix, at, bytes, 0, {}, 1, 0, std::move(samples)};
}

// The changes of one file, in order.
struct WaveEdit {
  Text File;
  std::int64_t Before = 0;  // current length of the sound, as the caller knows it
  std::int64_t After = 0;   // length after the edit: extended by steps that write there, or cut off
  std::vector<EditStep> Steps;
};

// An edit of one or more files under one note.
struct Edit {
  std::vector<WaveEdit> Waves;
  std::function<void(int percent)> Progress;  // percent of the bytes written; may process events
  // For an edit in a longer run that must not be repeated: the lines describe everything that the
  // run has done once this edit is done. If the program is killed before the end of the run, the
  // next start reports them.
  std::vector<Text> RunReport{};
};

// An error during an edit that has been completed nevertheless, or will be completed before the
// next edit of its file.
class FinishedAfterError final : public Laufzeitfehler {
 public:
  explicit FinishedAfterError(const Laufzeitfehler& fehler) : Laufzeitfehler(fehler) {}
};

// The results of Mend for programs that were killed.
struct MendedEdits {
  std::vector<Text> Finished;      // files whose edit has been completed
  std::vector<Text> RunReport;     // report of a run, including what was completed now
  std::vector<Text> SilenceTaken;  // files from which a burn's silence has been removed
  std::vector<Text> Left;          // left unchanged, since others have changed or removed them
  std::vector<Text> Failed;        // not completed; the next start tries again
  bool Empty() const {
    return Finished.empty() && RunReport.empty() && SilenceTaken.empty() && Left.empty() &&
           Failed.empty();
  }
};

class Edits {
 public:
  virtual ~Edits() = default;

  // Carries out the edit; all disk space that it needs is reserved first. After an error no file
  // has changed, unless the error is a FinishedAfterError. Raises 62 when the sound's length is not
  // `Before`.
  virtual void Apply(const Edit& edit) = 0;
  // Ends a run of edits with reports. Reports of this run are not shown after a later kill.
  virtual void EndRun() = 0;
  // Completes an earlier edit of the file that could not be completed at once. Returns true when
  // there was one, raises when it still cannot be completed. Apply calls it first.
  virtual bool Ready(const Text& file) = 0;

  // Silence of `Bytes` bytes at the end of a file.
  struct Silence {
    Text File;
    std::int64_t Bytes = 0;
  };
  // Appends silence to files until TakeBack removes it or Forget keeps it. When a file fails, none
  // keeps its silence. A second Lend forgets the first. After a kill the next start removes the
  // silence.
  virtual void Lend(const std::vector<Silence>& silences) = 0;
  virtual bool Lent() const = 0;
  // Removes the silence from each file independently. Returns the files for which this failed.
  virtual std::vector<Text> TakeBack() = 0;
  virtual void Forget() = 0;  // the files keep their silence

  // True when a note on the disk still needs this file, to read it or to complete its edit.
  virtual bool Needs(const Text& file) const = 0;

  // Completes the edits of killed programs. Must be called once at the start, when the user's files
  // can be reached and before they are used. Notes of running programs are left alone. Notes of
  // files on a missing medium stay for a later start.
  virtual MendedEdits Mend() = 0;
};

}  // namespace vantora
