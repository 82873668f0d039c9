// The sound output for back ends with sound of their own: 44.1 kHz, 16 bit, stereo, pulled from a
// source when needed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>

namespace vantora {

// Sound that is playing. Its destructor stops it: the source is not called again, and `ended` is
// not called.
class SoundStream {
 public:
  virtual ~SoundStream() = default;
  virtual std::int64_t Heard() const = 0;  // frames heard since the start
};

inline constexpr int kSoundAheadMs = 200;  // for sound that does not change while it plays

class SoundOutput {
 public:
  // Writes up to `frames` stereo frames to `target` and returns their number; fewer end the sound.
  // It is called from one thread at a time, not always the interface thread, and must not throw.
  using Source = std::function<std::size_t(std::int16_t* target, std::size_t frames)>;

  virtual ~SoundOutput() = default;
  // Starts playing. `ended` is called on the interface thread when the whole sound has been heard
  // or the card is gone. The device buffers about `aheadMs` of sound; with less, changes in the
  // source are heard sooner. Raises 57 when the card refuses.
  virtual std::unique_ptr<SoundStream> Play(Source source, std::function<void()> ended,
                                            int aheadMs) = 0;
};

}  // namespace vantora
