// The audio component set put together: own wave files, and players and devices from whoever has a
// sound card to offer.
#pragma once

#include "backends/sound/wave_file.h"

#include "platform/files.h"
#include "platform/mmtools.h"

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace vantora {

class SoundTools final : public MMTools {
 public:
  using NewPlayerCall = std::function<std::unique_ptr<MMWavePlayerX>()>;
  using DevicesCall = std::function<std::vector<Text>()>;  // names of the outputs

  SoundTools(Dateien& dateien, NewPlayerCall newPlayer, DevicesCall devices)
      : dateien_(dateien), newPlayer_(std::move(newPlayer)), devices_(std::move(devices)) {}

  std::unique_ptr<MMWaveFileX> NewWaveFile() override {
    return std::make_unique<WaveFile>(dateien_);
  }
  std::unique_ptr<MMWavePlayerX> NewPlayer() override { return newPlayer_(); }
  int waveOutGetNumDevs() override { return static_cast<int>(devices_().size()); }
  Text waveOutGetDevCaps(int device) override {
    const std::vector<Text> names = devices_();
    const auto place = static_cast<std::size_t>(device);
    return device >= 0 && place < names.size() ? names[place] : Text();
  }

 private:
  Dateien& dateien_;
  NewPlayerCall newPlayer_;
  DevicesCall devices_;
};

}  // namespace vantora
