#include "backends/alsa/alsa_output.h"

#include "backends/alsa/alsa_devices.h"

#include "platform/cd_sound.h"
#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <cerrno>
#include <string>

namespace vantora {

namespace {

[[noreturn]] void Refused(long error) {
  const std::string words = snd_strerror(static_cast<int>(error));
  throw Laufzeitfehler(kFehlerEinAusgabe, L"La tarjeta de sonido no responde.",
                       Text(words.begin(), words.end()));
}

}  // namespace

AlsaOutput::AlsaOutput(int aheadMs) {
  SilenceAlsaMessages();
  snd_pcm_t* opened = nullptr;
  // The device is opened without blocking, so that a card that has been unplugged cannot delay a
  // stop.
  const int error = snd_pcm_open(&opened, "default", SND_PCM_STREAM_PLAYBACK, SND_PCM_NONBLOCK);
  if (error < 0) Refused(error);
  pcm_.reset(opened);
  const int set = snd_pcm_set_params(opened, SND_PCM_FORMAT_S16_LE, SND_PCM_ACCESS_RW_INTERLEAVED,
                                     2, kSampleRate, 1, static_cast<unsigned>(aheadMs) * 1000);
  if (set < 0) Refused(set);
  snd_pcm_uframes_t period = 0;
  const int asked = snd_pcm_get_params(opened, &buffer_, &period);
  if (asked < 0) Refused(asked);
}

std::int64_t AlsaOutput::Write(const void* sound, std::int64_t frames, int ms) {
  snd_pcm_sframes_t taken =
      snd_pcm_writei(pcm_.get(), sound, static_cast<snd_pcm_uframes_t>(frames));
  if (taken == -EAGAIN) {
    const int waited = snd_pcm_wait(pcm_.get(), ms);
    if (waited == 0) return 0;
    taken = waited < 0 ? waited
                       : snd_pcm_writei(pcm_.get(), sound, static_cast<snd_pcm_uframes_t>(frames));
  }
  if (taken >= 0) return taken;
  if (taken == -EAGAIN) return 0;
  const int mended = snd_pcm_recover(pcm_.get(), static_cast<int>(taken), 1);
  if (mended < 0 && mended != -EAGAIN) Refused(mended);
  return 0;
}

void AlsaOutput::Begin() {
  if (snd_pcm_state(pcm_.get()) == SND_PCM_STATE_PREPARED) snd_pcm_start(pcm_.get());
}

std::optional<std::int64_t> AlsaOutput::Ahead() {
  // Playing has not begun yet.
  if (snd_pcm_state(pcm_.get()) == SND_PCM_STATE_PREPARED) return std::nullopt;
  snd_pcm_sframes_t frames = 0;
  if (snd_pcm_delay(pcm_.get(), &frames) < 0) return std::nullopt;
  return std::max<std::int64_t>(frames, 0);
}

bool AlsaOutput::Empty() {
  const snd_pcm_sframes_t room = snd_pcm_avail(pcm_.get());
  const snd_pcm_state_t state = snd_pcm_state(pcm_.get());
  if (state != SND_PCM_STATE_RUNNING && state != SND_PCM_STATE_PREPARED) return true;
  return room >= static_cast<snd_pcm_sframes_t>(buffer_);
}

void AlsaOutput::Drop() {
  snd_pcm_drop(pcm_.get());
}

}  // namespace vantora
