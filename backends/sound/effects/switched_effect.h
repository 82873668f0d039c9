// The base of all effects: the on/off switch, processing of whole frames in place, and gliding
// parameters.
#pragma once

#include "platform/mmchain.h"

#include <cstddef>

namespace vantora {

// Time for a parameter to reach its target. A jump would be heard as a click, a change in steps as
// a rattle.
inline constexpr int kGlideFrames = 1323;  // 30 ms

inline constexpr std::size_t kBufferFrames = kBufferBytes / 4;

// Flushes tiny values in a feedback loop to 0: they are inaudible but slow to compute.
inline float Hushed(float value) {
  constexpr float kHush = 1e-3F;
  return (value + kHush) - kHush;
}

// Parameters set before the sound begins apply from its first frame. An effect that is switched on
// while the sound runs fades in.
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
  virtual void Clear() = 0;   // forgets past sound, and restarts from the neutral setting
  virtual void Settle() = 0;  // completes all glides at once
  virtual void Process(float* samples, std::size_t frames) = 0;

 private:
  bool on_ = false;
  bool beginning_ = true;
};

}  // namespace vantora
