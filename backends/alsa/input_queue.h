// Sound that a card has recorded and the interface thread has not taken yet. The recording thread
// fills buffers in a ring and the interface thread empties them. Sound that finds no room counts as
// lost, and the next buffer with room carries the lost time.
#pragma once

#include "platform/sound_input.h"

#include <cstddef>
#include <cstdint>
#include <mutex>
#include <vector>

namespace vantora {

class InputQueue {
 public:
  explicit InputQueue(std::size_t buffers) : ring_(buffers) {}

  // Called from the recording thread.

  // Adds frames that the card recorded up to `ticks`; `lostMs` of sound were lost in front of them.
  // Returns true when the ring was empty before and has a full buffer now.
  bool Append(const std::int16_t* sound, std::size_t frames, std::int64_t ticks,
              std::int64_t lostMs);
  void End();  // marks the end of the recording

  // Called from the interface thread.

  bool Next(CapturedSound& sound);
  void Skip(std::int64_t ticks);  // drops sound up to `ticks`, also what comes in later
  bool Gone() const;              // ended, and all buffers have been taken

 private:
  static constexpr std::size_t kFrames = kBufferBytes / 4;

  void Store();

  mutable std::mutex guard_;
  std::vector<CapturedSound> ring_;
  std::size_t first_ = 0, count_ = 0;
  CapturedSound part_;          // the buffer being filled
  std::int64_t lastTicks_ = 0;  // of the buffer before
  std::int64_t skipped_ = 0;    // in ticks; sound recorded up to then is dropped
  bool ended_ = false;
};

}  // namespace vantora
