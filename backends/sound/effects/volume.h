// Changes the volume: 16384 is unchanged, 0 is silence, 32767 is about twice as loud.
#pragma once

#include "backends/sound/effects/glide.h"
#include "backends/sound/effects/switched_effect.h"

#include <array>

namespace vantora {

class Volume final : public SwitchedEffect<MMVolumeX> {
 public:
  Volume();
  void SetVolume(int volume) override;

 private:
  void Clear() override;
  void Settle() override { volume_.Settle(); }
  void Process(float* samples, std::size_t frames) override;

  Glide volume_;
  std::array<float, kBufferFrames> path_{};
};

}  // namespace vantora
