// The volume of all sound that the program itself plays, for machines whose card has no volume for
// it. It is set on the interface thread and applied in the threads that play.
#pragma once

#include "platform/eqpro.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>

namespace vantora {

class OutputVolume {
 public:
  int Volume() const { return volume_; }
  void SetVolume(int volume) { Set(volume_, std::clamp(volume, 0, kFullVolume)); }
  bool On() const { return on_; }
  void SetOn(bool on) { Set(on_, on); }
  // The factor of the samples: the cube of the volume, because the ear hears it so.
  double Gain() const;

  std::function<void()> OnChange;  // on the interface thread

 private:
  template <typename T>
  void Set(std::atomic<T>& value, T wanted) {
    if (value.exchange(wanted) != wanted && OnChange) OnChange();
  }

  std::atomic<int> volume_{kFullVolume};
  std::atomic<bool> on_{true};
};

// Puts the volume on one stream of sound. A change comes as a ramp over a block, so that it does
// not click; at full volume the sound stays the same to the bit.
class VolumeOnStream {
 public:
  explicit VolumeOnStream(const OutputVolume& volume) : volume_(volume), gain_(volume.Gain()) {}
  void Apply(std::int16_t* stereo, std::size_t frames);

 private:
  const OutputVolume& volume_;
  double gain_;  // at the end of the last block
};

}  // namespace vantora
