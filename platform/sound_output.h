// The loudspeaker for back ends that have sound of their own to play: 44.1 kHz, 16 bit, stereo,
// pulled from its source as it is needed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>

namespace vantora {

// Silence from its destruction on: the source is not asked again, and the end is not told.
class SoundStream {
 public:
  virtual ~SoundStream() = default;
  virtual std::int64_t Heard() const = 0;  // frames heard since the start
};

inline constexpr int kSoundAheadMs = 200;  // for sound that nobody changes as it plays

class SoundOutput {
 public:
  // Puts up to `frames` frames of two samples at `target`; fewer are the end of the sound. Comes
  // from one thread at a time, which need not be the interface's, and leaves no exception.
  using Source = std::function<std::size_t(std::int16_t* target, std::size_t frames)>;

  virtual ~SoundOutput() = default;
  // `ended` comes on the interface thread when the sound has been heard to its end, or the card has
  // gone. The device holds about `aheadMs` of sound that is not heard yet; a little makes what
  // changes in the source heard sooner. Raises 57 when the card refuses.
  virtual std::unique_ptr<SoundStream> Play(Source source, std::function<void()> ended,
                                            int aheadMs) = 0;
};

}  // namespace vantora
