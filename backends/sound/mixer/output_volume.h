// The volume of all sound that the program plays, for machines whose card has no such control. It
// is set on the interface thread and read on the threads that play.
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
  // The factor for samples: the cube of the volume, which matches perceived loudness.
  double Gain() const;

  std::function<void()> OnChange;  // called on the interface thread

 private:
  template <typename T>
  void Set(std::atomic<T>& value, T wanted) {
    if (value.exchange(wanted) != wanted && OnChange) OnChange();
  }

  std::atomic<int> volume_{kFullVolume};
  std::atomic<bool> on_{true};
};

// Applies the volume to one stream. Changes are ramped over a block to avoid clicks. At full volume
// the samples stay unchanged.
class VolumeOnStream {
 public:
  explicit VolumeOnStream(const OutputVolume& volume) : volume_(volume), gain_(volume.Gain()) {}
  void Apply(std::int16_t* stereo, std::size_t frames);

 private:
  const OutputVolume& volume_;
  double gain_;  // at the end of the last block
};

}  // namespace vantora
