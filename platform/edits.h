// Changes of wave files in place, none of which a kill of the program can leave half done. Before
// a change begins, a note on the disk says all that it will do; while it works, the note keeps
// each block that could not be computed again. The next start of the program brings changes to
// their end whose program was killed. Loss of power is not covered.
//
// Places and lengths are bytes of sound, 0 at its first byte. Chunks behind the sound stay, and
// move when its length changes. Failures are Laufzeitfehler with the numbers of platform/files.h.
#pragma once

#include "platform/laufzeitfehler.h"
#include "platform/text.h"

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

namespace vantora {

// One operation on a range of a wave. The range ends where the sound ends after the edit, or
// before.
struct EditStep {
  enum class Kind : std::uint8_t { Move, Copy, Zero, Ramp, Scale, Mix };

  Kind What = Kind::Zero;
  std::int64_t At = 0;  // what is written
  std::int64_t Bytes = 0;
  std::int64_t From = 0;  // Move: in the same sound; Copy: in that of the source
  Text Source;            // Copy: another wave file, which nobody changes meanwhile
  // Ramp: the gain of the range's frame k is Start + k * Slope, within 0 and 1. Scale: every sample
  // of 16 bits times Start. Both round to nearest, ties to even.
  double Start = 1, Slope = 0;
  std::vector<char> Samples;  // Mix: what was mixed in memory; the note keeps it
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

// What happens to one file, step by step.
struct WaveEdit {
  Text File;
  std::int64_t Before = 0;  // the sound's length as the caller has seen it
  std::int64_t After = 0;   // and afterwards: longer where the steps write it, or cut off
  std::vector<EditStep> Steps;
};

// One edit of one or more files under one note.
struct Edit {
  std::vector<WaveEdit> Waves;
  std::function<void(int percent)> Progress;  // of the bytes that are written; may let events run
  // Of an edit that belongs to a longer run, which must not be done twice: in lines, all that the
  // run will have done when this edit is done. Until the run ends, a kill lets the next start say
  // them.
  std::vector<Text> RunReport{};
};

// An error in the middle of an edit that has been finished all the same, or will be before its file
// takes another one.
class FinishedAfterError final : public Laufzeitfehler {
 public:
  explicit FinishedAfterError(const Laufzeitfehler& fehler) : Laufzeitfehler(fehler) {}
};

// What the next start has found of a program that was killed.
struct MendedEdits {
  std::vector<Text> Finished;      // files whose edit has been brought to its end
  std::vector<Text> RunReport;     // lines of what a run had done, with what was finished of it
  std::vector<Text> SilenceTaken;  // files that have given back the silence of a burn
  std::vector<Text> Left;          // changed or removed by others since: left as they are
  std::vector<Text> Failed;        // not yet; the next start tries again
  bool Empty() const {
    return Finished.empty() && RunReport.empty() && SilenceTaken.empty() && Left.empty() &&
           Failed.empty();
  }
};

class Edits {
 public:
  virtual ~Edits() = default;

  // Carries the edit out. All room that it needs is reserved first. After an error nothing has
  // changed, unless it is a FinishedAfterError. Error 62 when the sound is not as long as the edit
  // says.
  virtual void Apply(const Edit& edit) = 0;
  // The run of the edits with a report has come to its end; a kill says nothing of it any more.
  virtual void EndRun() = 0;
  // Finishes an edit of the file that could not be finished at once; true when there was one.
  // Raises when it still cannot. Apply begins with it.
  virtual bool Ready(const Text& file) = 0;

  // Sound of so many bytes at the end of a file.
  struct Silence {
    Text File;
    std::int64_t Bytes = 0;
  };
  // Appends silence to files, to be taken back. When one of them fails, none keeps it. The loan
  // ends with TakeBack or Forget; a new one forgets the one before. After a kill the next start
  // takes it back.
  virtual void Lend(const std::vector<Silence>& silences) = 0;
  virtual bool Lent() const = 0;
  // Takes out what was lent, from each file singly. Returns those that could not give it back.
  virtual std::vector<Text> TakeBack() = 0;
  virtual void Forget() = 0;  // the silence stays

  // A note on the disk still needs this file, to read from it or to finish it.
  virtual bool Needs(const Text& file) const = 0;

  // Finishes what killed programs have left, once at the start, with the user's files in reach and
  // before anything looks at them. Notes of programs that run are left alone, and notes of files
  // whose medium is away stay for a later start.
  virtual MendedEdits Mend() = 0;
};

}  // namespace vantora
