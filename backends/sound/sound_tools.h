// Assembles the audio components: wave files, chains and filters from this folder; players,
// devices, sound output, sound input and the pitch effect from other back ends.
#pragma once

#include "platform/edits.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/mmtools.h"
#include "platform/profile.h"
#include "platform/sound_input.h"
#include "platform/sound_output.h"

#include <functional>
#include <memory>
#include <vector>

namespace vantora {

class SoundTools final : public MMTools {
 public:
  struct Card {
    std::function<std::unique_ptr<MMWavePlayerX>()> NewPlayer;
    std::function<std::vector<Text>()> Devices;  // names of the outputs
    SoundOutput& Output;
    SoundInput& Input;
  };
  using PitchMaker = std::function<std::unique_ptr<MMPitchX>()>;
  SoundTools(EventLoop& loop, Dateien& dateien, Edits& edits, Profile& profiles, Card card,
             PitchMaker newPitch);
  ~SoundTools() override;

  std::unique_ptr<MMWave> NewWaveFile() override;
  std::unique_ptr<MMWavePlayerX> NewPlayer() override;
  int waveOutGetNumDevs() override;
  Text waveOutGetDevCaps(int device) override;

  std::unique_ptr<MMWaveFileX> NewWaveFileX() override;
  std::unique_ptr<MMPCMConverterX> NewPCMConverter() override;
  std::unique_ptr<MMPeakDetectX> NewPeakDetect() override;
  std::unique_ptr<MMDSPInterfaceX> NewDSPInterface() override;
  std::unique_ptr<MMEqualizerX> NewEqualizer() override;
  std::unique_ptr<MMReverbX> NewReverb() override;
  std::unique_ptr<MMFlangerX> NewFlanger() override;
  std::unique_ptr<MMVolumeX> NewVolume() override;
  std::unique_ptr<MMPitchX> NewPitch() override;
  std::unique_ptr<MMWaveOutX> NewWaveOut() override;
  std::unique_ptr<MMWaveInX> NewWaveIn() override;
  std::unique_ptr<MMConnectorX> NewConnector() override;
  std::unique_ptr<MMTriggerX> NewTrigger() override;
  MMHelperX& Helper() override;
  void NormalizeFile(const Text& file, const std::function<void(int phase, int percent)>& callback,
                     int percent) override;

 private:
  EventLoop& loop_;
  Dateien& dateien_;
  Edits& edits_;
  Profile& profiles_;
  Card card_;
  PitchMaker newPitch_;
  std::unique_ptr<MMHelperX> helper_;
};

}  // namespace vantora
