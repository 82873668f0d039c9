// What a card has heard and nobody has taken yet: buffers in a row, filled by the thread that
// listens and emptied by the interface's. What finds no room counts as lost, in front of the next
// buffer that does.
#pragma once

#include "platform/sound_input.h"

#include <cstddef>
#include <cstdint>
#include <mutex>
#include <vector>

namespace vantora {

class CaptureRing {
 public:
  explicit CaptureRing(std::size_t buffers) : ring_(buffers) {}

  // ---- the thread that listens ----

  // The frames that the card has heard up to `ticks`, `lostMs` after those before. True when the
  // ring was empty and is not any more.
  bool Append(const std::int16_t* sound, std::size_t frames, std::int64_t ticks,
              std::int64_t lostMs);
  void End();  // nothing more will come

  // ---- the interface thread ----

  bool Next(CapturedSound& sound);
  void Skip(std::int64_t ticks);  // drops what was heard up to then, also what the card still holds
  bool Gone() const;              // ended, and all has been taken

 private:
  static constexpr std::size_t kFrames = kBufferBytes / 4;

  void Store();

  mutable std::mutex guard_;
  std::vector<CapturedSound> ring_;
  std::size_t first_ = 0, count_ = 0;
  CapturedSound part_;          // grows to a buffer
  std::int64_t lastTicks_ = 0;  // of the buffer before
  std::int64_t skipped_ = 0;    // ticks; nothing that was heard up to then is kept
  bool ended_ = false;
};

}  // namespace vantora
