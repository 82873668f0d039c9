#include "backends/sound/sound_tools.h"

#include "backends/sound/chain/connector.h"
#include "backends/sound/chain/dsp_interface.h"
#include "backends/sound/chain/pcm_converter.h"
#include "backends/sound/chain/peak_detect.h"
#include "backends/sound/chain/trigger.h"
#include "backends/sound/chain/wave_in.h"
#include "backends/sound/chain/wave_out.h"
#include "backends/sound/edits/normalizer.h"
#include "backends/sound/effects/equalizer.h"
#include "backends/sound/effects/flanger.h"
#include "backends/sound/effects/reverb.h"
#include "backends/sound/effects/sound_helper.h"
#include "backends/sound/effects/volume.h"
#include "backends/sound/files/wave_file.h"
#include "backends/sound/files/wave_object.h"

#include <utility>

namespace vantora {

SoundTools::SoundTools(EventLoop& loop, Dateien& dateien, Edits& edits, Profile& profiles,
                       Card card, PitchMaker newPitch)
    : loop_(loop),
      dateien_(dateien),
      edits_(edits),
      profiles_(profiles),
      card_(std::move(card)),
      newPitch_(std::move(newPitch)),
      helper_(std::make_unique<SoundHelper>(profiles)) {}

SoundTools::~SoundTools() = default;

std::unique_ptr<MMWave> SoundTools::NewWaveFile() {
  return std::make_unique<WaveFile>(dateien_);
}

std::unique_ptr<MMWavePlayerX> SoundTools::NewPlayer() {
  return card_.NewPlayer();
}

int SoundTools::waveOutGetNumDevs() {
  return static_cast<int>(card_.Devices().size());
}

Text SoundTools::waveOutGetDevCaps(int device) {
  const std::vector<Text> names = card_.Devices();
  const auto place = static_cast<std::size_t>(device);
  return device >= 0 && place < names.size() ? names[place] : Text();
}

std::unique_ptr<MMWaveFileX> SoundTools::NewWaveFileX() {
  return std::make_unique<WaveComponent>(dateien_);
}

std::unique_ptr<MMPCMConverterX> SoundTools::NewPCMConverter() {
  return std::make_unique<PcmConverter>();
}

std::unique_ptr<MMPeakDetectX> SoundTools::NewPeakDetect() {
  return std::make_unique<PeakDetect>();
}

std::unique_ptr<MMDSPInterfaceX> SoundTools::NewDSPInterface() {
  return std::make_unique<DspInterface>();
}

std::unique_ptr<MMEqualizerX> SoundTools::NewEqualizer() {
  return std::make_unique<Equalizer>();
}

std::unique_ptr<MMReverbX> SoundTools::NewReverb() {
  return std::make_unique<Reverb>(profiles_);
}

std::unique_ptr<MMFlangerX> SoundTools::NewFlanger() {
  return std::make_unique<Flanger>();
}

std::unique_ptr<MMVolumeX> SoundTools::NewVolume() {
  return std::make_unique<Volume>();
}

std::unique_ptr<MMPitchX> SoundTools::NewPitch() {
  return newPitch_();
}

std::unique_ptr<MMWaveOutX> SoundTools::NewWaveOut() {
  return std::make_unique<WaveOut>(loop_, card_.Output);
}

std::unique_ptr<MMWaveInX> SoundTools::NewWaveIn() {
  return std::make_unique<WaveIn>(loop_, card_.Input);
}

std::unique_ptr<MMConnectorX> SoundTools::NewConnector() {
  return std::make_unique<Connector>();
}

std::unique_ptr<MMTriggerX> SoundTools::NewTrigger() {
  return std::make_unique<Trigger>(loop_);
}

MMHelperX& SoundTools::Helper() {
  return *helper_;
}

void SoundTools::NormalizeFile(const Text& file,
                               const std::function<void(int phase, int percent)>& callback,
                               int percent) {
  NormalizeWaveFile(dateien_, edits_, file, callback, percent);
}

}  // namespace vantora
