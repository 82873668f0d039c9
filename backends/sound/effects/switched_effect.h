// What all effects have in common: the switch, whole frames in place, and parameters that glide.
#pragma once

#include "platform/mmchain.h"

#include <cstddef>
#include <cstdint>

namespace vantora {

// A parameter that jumps is heard as a click, one that moves in steps as a rattle, so each takes
// this long to arrive.
inline constexpr int kGlideFrames = 1323;  // 30 ms

inline constexpr std::size_t kBufferFrames = kBufferBytes / 4;

// The nearest sample, ties to even; what is too loud stays at the edge. The sum has no room for
// digits behind the point.
inline std::int16_t ToSample(float value) {
  constexpr float kRounder = 12'582'912.0F;  // 1.5 * 2^23
  const float low = value < -32768.0F ? -32768.0F : value;
  const float inside = low > 32767.0F ? 32767.0F : low;
  return static_cast<std::int16_t>(static_cast<int>((inside + kRounder) - kRounder));
}

// A value that goes round and round, without what is far too soft to hear but slow to compute.
inline float Hushed(float value) {
  constexpr float kHush = 1e-3F;
  return (value + kHush) - kHush;
}

// Parameters that are set before the sound begins hold from its first frame; an effect that is
// switched on while the sound runs grows into it.
template <class Interface>
class SwitchedEffect : public Interface {
 public:
  void Enable() final {
    if (on_) return;
    on_ = true;
    Clear();
  }
  void Disable() final { on_ = false; }
  void Rewind() final {
    beginning_ = true;
    Interface::Rewind();
  }
  void Pull(MMData& data) final {
    Interface::Pull(data);
    if (data.Bytes < 4) return;
    if (on_ && beginning_) Settle();
    beginning_ = false;
    if (on_) Process(data.Samples.data(), data.Bytes / 4);
  }

 protected:
  virtual void Clear() = 0;   // forgets the sound that went through, and leaves from no effect
  virtual void Settle() = 0;  // what still glides arrives
  virtual void Process(std::int16_t* samples, std::size_t frames) = 0;

 private:
  bool on_ = false;
  bool beginning_ = true;
};

}  // namespace vantora
