// Finds frames of Layer III with an intact header and damaged content, by three rules: a checksum,
// if any, must match; no field may have a value that encoders must not write; and the sound of a
// frame must begin at or after the end of the sound before it and end in the frame itself.
//
// When at least an eighth of a file's frames break a rule, its encoder does so by habit, and the
// rule is ignored.
//
// Damage to the sound data itself is not found: only the side information can be checked without
// decoding, and checksums cover no more. A single wrong bit in the sound data can still be heard as
// a burst of noise of one frame.
#pragma once

#include "backends/mpg123/mpeg_frame.h"
#include "backends/mpg123/mpeg_runs.h"

#include <array>
#include <cstdint>
#include <vector>

namespace vantora {

class MpegDamage {
 public:
  // Takes all frames of a file in order, with BeginRun before each run. `frame` has kHeadOfFrame
  // bytes.
  void BeginRun();
  void Look(std::int64_t place, const FrameHeader& header, const unsigned char* frame);

  // Called after all frames: lists the damaged frames of a run, and cuts off those at its broken
  // ends, where it is not certain that they are frames at all.
  void Judge(MpegRun& run) const;

 private:
  enum Rule : unsigned { kChecksum = 1, kNumbers = 2, kRoom = 4 };
  struct Frame {
    std::int64_t place = 0, bytes = 0;
    unsigned broken = 0;
    bool spoilt = false;
  };

  Frame& Entry(const Frame& frame);
  void Breaks(const Frame& frame, unsigned rules);
  bool NeedsSpoilt(const FrameHeader& header, std::int64_t back, std::int64_t room);
  bool Damaged(const Frame& frame) const;

  std::vector<Frame> suspects_;
  std::array<std::int64_t, 3> counts_{};  // frames that break each rule
  std::int64_t frames_ = 0;
  Frame last_;
  // Positions in the data bytes of all frames, headers excluded: the end of the frames so far, the
  // end of the last frame's sound, and the end of the data that the decoder has lost.
  std::int64_t rooms_ = 0, free_ = 0, spoilt_ = 0;
  std::int64_t lastStart_ = 0;  // where the last frame's sound begins
  std::int64_t held_ = 0;       // bytes before the frame that the decoder believes to have
};

}  // namespace vantora
