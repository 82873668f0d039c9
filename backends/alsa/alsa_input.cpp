#include "backends/alsa/alsa_input.h"

#include "backends/alsa/alsa_devices.h"
#include "backends/alsa/input_queue.h"

#include "platform/cd_sound.h"
#include "platform/laufzeitfehler.h"

#include <alsa/asoundlib.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <string>
#include <thread>
#include <utility>

namespace vantora {

namespace {

// 75 ms. Each wake-up of the sound server, of this thread and of the event loop costs more than
// handling the sound itself. At 75 ms a level is still shown at the moment at which it is heard.
constexpr snd_pcm_uframes_t kPeriod = 3328;
constexpr unsigned kCardMs = 500;  // sound that the card buffers while this machine is busy
constexpr int kPatienceMs = 100;   // longer than a period, so that a wait normally ends with sound

[[noreturn]] void Refused(int error) {
  const std::string words = snd_strerror(error);
  throw Laufzeitfehler(kFehlerEinAusgabe, L"La entrada de sonido no responde.",
                       Text(words.begin(), words.end()));
}

struct CloseCard {
  void operator()(snd_pcm_t* pcm) const { snd_pcm_close(pcm); }
};
using Card = std::unique_ptr<snd_pcm_t, CloseCard>;

// Asks for short periods and a long buffer.
void SetUp(snd_pcm_t* pcm) {
  const auto check = [](int result) {
    if (result < 0) Refused(result);
  };
  snd_pcm_hw_params_t* params = nullptr;
  snd_pcm_hw_params_alloca(&params);
  check(snd_pcm_hw_params_any(pcm, params));
  check(snd_pcm_hw_params_set_rate_resample(pcm, params, 1));
  check(snd_pcm_hw_params_set_access(pcm, params, SND_PCM_ACCESS_RW_INTERLEAVED));
  check(snd_pcm_hw_params_set_format(pcm, params, SND_PCM_FORMAT_S16_LE));
  check(snd_pcm_hw_params_set_channels(pcm, params, 2));
  check(snd_pcm_hw_params_set_rate(pcm, params, kSampleRate, 0));
  snd_pcm_uframes_t buffer = kSampleRate * kCardMs / 1000, period = kPeriod;
  check(snd_pcm_hw_params_set_buffer_size_near(pcm, params, &buffer));
  check(snd_pcm_hw_params_set_period_size_near(pcm, params, &period, nullptr));
  check(snd_pcm_hw_params(pcm, params));
  snd_pcm_sw_params_t* waking = nullptr;
  snd_pcm_sw_params_alloca(&waking);
  check(snd_pcm_sw_params_current(pcm, waking));
  check(snd_pcm_sw_params_set_avail_min(pcm, waking, kPeriod));
  check(snd_pcm_sw_params(pcm, waking));
}

Card OpenCard() {
  SilenceAlsaMessages();
  snd_pcm_t* opened = nullptr;
  // The device is opened without blocking, so that a card that has been unplugged cannot keep the
  // thread from ending.
  const int error = snd_pcm_open(&opened, "default", SND_PCM_STREAM_CAPTURE, SND_PCM_NONBLOCK);
  if (error < 0) Refused(error);
  Card card(opened);
  SetUp(opened);
  const int started = snd_pcm_start(opened);
  if (started < 0) Refused(started);
  return card;
}

class Capture final : public SoundCapture {
 public:
  Capture(EventLoop& loop, Clock& clock, std::function<void()> ready)
      : clock_(clock),
        card_(OpenCard()),
        ready_(std::make_shared<std::function<void()>>(std::move(ready))),
        lastTicks_(clock.Ticks()) {
    wake_ = [&loop, watch = std::weak_ptr(ready_)] {
      loop.Post([watch] {
        const auto call = watch.lock();
        if (call) (*call)();
      });
    };
    thread_ = std::thread([this] { Listen(); });
  }
  ~Capture() override {
    stop_ = true;
    thread_.join();
  }
  Capture(const Capture&) = delete;
  Capture& operator=(const Capture&) = delete;

  bool Next(CapturedSound& sound) override { return ring_.Next(sound); }
  void Skip() override { ring_.Skip(clock_.Ticks()); }
  bool Gone() override { return ring_.Gone(); }

 private:
  void Listen() {
    std::array<std::int16_t, kPeriod * 2> sound{};
    while (!stop_) {
      // Reads a whole period at a time, since a part of one would wake the event loop too. When no
      // period has come within the wait, the read fails if the card is gone.
      const int waited = snd_pcm_wait(card_.get(), kPatienceMs);
      if (waited < 0) {
        if (!Mend(waited)) break;
        continue;
      }
      const snd_pcm_sframes_t frames = snd_pcm_readi(card_.get(), sound.data(), kPeriod);
      if (frames > 0) {
        Take(sound.data(), frames);
      } else if (frames != 0 && frames != -EAGAIN && !Mend(static_cast<int>(frames))) {
        break;
      }
    }
    if (stop_) return;
    ring_.End();
    wake_();
  }

  // After an overrun, the time lost is the gap between the end of the sound before and the start of
  // this sound.
  void Take(const std::int16_t* sound, snd_pcm_sframes_t frames) {
    snd_pcm_sframes_t waiting = 0;
    if (snd_pcm_delay(card_.get(), &waiting) < 0 || waiting < 0) waiting = 0;
    const std::int64_t ticks = clock_.Ticks() - waiting * 1000 / kSampleRate;
    std::int64_t lost = 0;
    if (std::exchange(interrupted_, false)) {
      lost = std::max<std::int64_t>(ticks - frames * 1000 / kSampleRate - lastTicks_, 1);
    }
    lastTicks_ = ticks;
    if (ring_.Append(sound, static_cast<std::size_t>(frames), ticks, lost)) wake_();
  }

  // Restarts the card after an overrun. Returns false when the card is gone.
  bool Mend(int error) {
    if (error == -EPIPE || error == -ESTRPIPE) interrupted_ = true;
    if (snd_pcm_recover(card_.get(), error, 1) < 0) return false;
    if (snd_pcm_state(card_.get()) != SND_PCM_STATE_PREPARED) return true;
    return snd_pcm_start(card_.get()) >= 0;
  }

  Clock& clock_;
  Card card_;
  InputQueue ring_{kCaptureBuffers};
  std::shared_ptr<std::function<void()>> ready_;  // posted calls die with it
  std::function<void()> wake_;
  std::int64_t lastTicks_;  // time up to which sound has arrived
  bool interrupted_ = false;
  std::atomic<bool> stop_ = false;
  std::thread thread_;  // last, since the thread uses all other members
};

}  // namespace

std::unique_ptr<SoundCapture> AlsaSoundInput::Listen(std::function<void()> ready) {
  return std::make_unique<Capture>(loop_, clock_, std::move(ready));
}

}  // namespace vantora
