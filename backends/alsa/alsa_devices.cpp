#include "backends/alsa/alsa_devices.h"

#include <alsa/asoundlib.h>

#include <cerrno>
#include <cstdlib>
#include <memory>
#include <string>

namespace vantora {

namespace {

void SayNothing(const char*, int, const char*, int, const char*, ...) {}

struct Released {
  void operator()(snd_ctl_t* control) const { snd_ctl_close(control); }
  void operator()(snd_pcm_t* pcm) const { snd_pcm_close(pcm); }
};

void AddOutputs(int card, std::vector<Text>& names) {
  snd_ctl_t* opened = nullptr;
  if (snd_ctl_open(&opened, ("hw:" + std::to_string(card)).c_str(), 0) < 0) return;
  const std::unique_ptr<snd_ctl_t, Released> control(opened);
  snd_pcm_info_t* info = nullptr;
  snd_pcm_info_alloca(&info);
  for (int device = -1; snd_ctl_pcm_next_device(opened, &device) == 0 && device >= 0;) {
    snd_pcm_info_set_device(info, static_cast<unsigned>(device));
    snd_pcm_info_set_subdevice(info, 0);
    snd_pcm_info_set_stream(info, SND_PCM_STREAM_PLAYBACK);
    if (snd_ctl_pcm_info(opened, info) < 0) continue;
    char* card_name = nullptr;
    if (snd_card_get_name(card, &card_name) < 0) continue;
    const std::unique_ptr<char, decltype(&std::free)> owned(card_name, &std::free);
    names.push_back(AlsaName(card_name) + L", " + AlsaName(snd_pcm_info_get_name(info)));
  }
}

// True when a sound server answers behind "default". That is possible without a card.
bool DefaultAnswers() {
  snd_pcm_t* opened = nullptr;
  const int error = snd_pcm_open(&opened, "default", SND_PCM_STREAM_PLAYBACK, SND_PCM_NONBLOCK);
  const std::unique_ptr<snd_pcm_t, Released> pcm(opened);
  return error == 0 || error == -EBUSY;
}

}  // namespace

Text AlsaName(const char* name) {
  Text text(name == nullptr ? 0 : std::string(name).size(), L'\0');
  const std::size_t length = text.empty() ? 0 : std::mbstowcs(text.data(), name, text.size());
  if (length == static_cast<std::size_t>(-1)) return Text(name, name + text.size());
  text.resize(length);
  return text;
}

void SilenceAlsaMessages() {
  snd_lib_error_set_handler(&SayNothing);
}

std::vector<Text> AlsaPlaybackDevices() {
  SilenceAlsaMessages();
  std::vector<Text> names;
  for (int card = -1; snd_card_next(&card) == 0 && card >= 0;) AddOutputs(card, names);
  if (names.empty() && DefaultAnswers()) names.emplace_back(L"Salida de audio del sistema");
  return names;
}

}  // namespace vantora
