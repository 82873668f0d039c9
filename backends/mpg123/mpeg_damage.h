// Finds frames of Layer III whose header is intact and whose content is not, by three rules: the
// checksum fits, where there is one; no number is one that encoders may not write; and the sound of
// a frame begins where the frame before ends, and ends in the frame's own room.
//
// A rule that every eighth frame of a file breaks is a habit of its encoder, and counts no more.
//
// Damage to the sound itself is not found: only the side information can be judged without
// decoding, and checksums cover nothing else. A single wrong bit in the sound can still be heard as
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
  // All frames of a file, run by run, in their order; `frame` has kHeadOfFrame bytes.
  void BeginRun();
  void Look(std::int64_t place, const FrameHeader& header, const unsigned char* frame);

  // When all have been seen: enters the damaged frames of a run, and leaves out those at its broken
  // ends, where nothing proves that they were frames at all.
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
  std::array<std::int64_t, 3> counts_{};  // of frames that break each rule
  std::int64_t frames_ = 0;
  Frame last_;
  // Bytes for sound, counted through all frames: of the frames so far, up to the end of the last
  // frame's sound, and up to which a run's decoder has lost some.
  std::int64_t rooms_ = 0, free_ = 0, spoilt_ = 0;
  std::int64_t lastStart_ = 0;  // where the last frame's sound began
  std::int64_t held_ = 0;       // that the run's decoder takes for there
};

}  // namespace vantora
