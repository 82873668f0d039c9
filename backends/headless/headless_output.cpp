#include "backends/headless/headless_output.h"

#include "platform/cd_sound.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace vantora {

namespace {

constexpr int kTickMs = 50;

struct Voice {
  EventLoop& Loop;
  Clock& Time;
  const HeadlessSoundCard& Card;
  SoundOutput::Source Source;
  std::function<void()> Ended;
  std::int64_t StartTicks = 0;
  std::int64_t Given = 0;  // frames that the source has given
  bool AtEnd = false;      // the source has no more frames
  bool Wanted = true;

  std::int64_t Due() const { return (Time.Ticks() - StartTicks) * kSampleRate / 1000; }
};

// Fetches the frames that are due until the next tick.
void Fetch(Voice& voice) {
  const std::int64_t wanted = voice.Due() + kTickMs * kSampleRate / 1000 - voice.Given;
  if (voice.AtEnd || wanted <= 0) return;
  std::vector<std::int16_t> sound(static_cast<std::size_t>(wanted) * 2);
  const auto given =
      static_cast<std::int64_t>(voice.Source(sound.data(), static_cast<std::size_t>(wanted)));
  voice.Given += given;
  voice.AtEnd = given < wanted;
}

void Tick(const std::shared_ptr<Voice>& voice) {
  if (!voice->Wanted) return;
  if (!voice->Card.Present) {
    voice->AtEnd = true;
    voice->Given = std::min(voice->Given, voice->Due());
  }
  Fetch(*voice);
  const std::int64_t rest = voice->Given - voice->Due();
  if (voice->AtEnd && rest <= 0) {
    voice->Wanted = false;
    if (voice->Ended) std::exchange(voice->Ended, nullptr)();
    return;
  }
  const std::int64_t restMs = (rest * 1000 + kSampleRate - 1) / kSampleRate;
  const std::int64_t ms = voice->AtEnd ? std::min<std::int64_t>(restMs, kTickMs) : kTickMs;
  voice->Loop.PostAfter(static_cast<int>(ms), [voice] { Tick(voice); });
}

class Stream final : public SoundStream {
 public:
  explicit Stream(std::shared_ptr<Voice> voice) : voice_(std::move(voice)) {}
  ~Stream() override { voice_->Wanted = false; }
  Stream(const Stream&) = delete;
  Stream& operator=(const Stream&) = delete;

  std::int64_t Heard() const override { return std::min(voice_->Due(), voice_->Given); }

 private:
  std::shared_ptr<Voice> voice_;
};

}  // namespace

std::unique_ptr<SoundStream> HeadlessOutput::Play(Source source, std::function<void()> ended,
                                                  int /*aheadMs*/) {
  if (!card_.Present) {
    throw Laufzeitfehler(kFehlerEinAusgabe, L"No se encuentra ninguna tarjeta de sonido.");
  }
  const auto voice =
      std::make_shared<Voice>(Voice{loop_, clock_, card_, std::move(source), std::move(ended)});
  voice->StartTicks = clock_.Ticks();
  Tick(voice);
  return std::make_unique<Stream>(voice);
}

}  // namespace vantora
