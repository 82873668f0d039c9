#include "backends/alsa/alsa_stream.h"

#include "platform/cd_sound.h"
#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace vantora {

namespace {

constexpr int kPatienceMs = 20;
constexpr auto kDrainLimit = std::chrono::seconds(2);

}  // namespace

AlsaStream::AlsaStream(Calls calls, const OutputVolume& volume, int aheadMs)
    : calls_(std::move(calls)),
      blockFrames_(std::int64_t{aheadMs} * kSampleRate / 1000 / 4),
      volume_(volume),
      output_(std::make_unique<AlsaOutput>(aheadMs)) {
  thread_ = std::thread([this] { Play(); });
}

void AlsaStream::Stop() {
  stop_ = true;
  if (thread_.joinable()) thread_.join();
}

void AlsaStream::Play() {
  try {
    std::vector<std::int16_t> sound(static_cast<std::size_t>(blockFrames_) * 2);
    for (auto frames = blockFrames_; !stop_ && frames == blockFrames_;) {
      frames = static_cast<std::int64_t>(
          calls_.Source(sound.data(), static_cast<std::size_t>(blockFrames_)));
      volume_.Apply(sound.data(), static_cast<std::size_t>(frames));
      HandOver(sound, frames);
    }
    Drain();
  } catch (const Laufzeitfehler&) {
    // The card was unplugged while playing. The sound ends here, and Ended reports it to the owner.
  }
  output_.reset();  // frees the card for others
  if (!stop_) calls_.Ended();
}

void AlsaStream::HandOver(const std::vector<std::int16_t>& sound, std::int64_t frames) {
  for (std::int64_t given = 0; given < frames && !stop_;) {
    const std::int64_t taken =
        output_->Write(&sound[static_cast<std::size_t>(given) * 2], frames - given, kPatienceMs);
    given += taken;
    written_ += taken;
    Listen();
  }
}

void AlsaStream::Drain() {
  using Clock = std::chrono::steady_clock;
  if (!stop_) output_->Begin();
  const auto limit = Clock::now() + kDrainLimit;
  while (!stop_ && !output_->Empty() && Clock::now() < limit) Linger();
  // The rest of the sound is heard after the delay measured now. A sound server's delay no longer
  // falls when no sound follows, so it cannot be waited for.
  const std::chrono::milliseconds delay(output_->Ahead().value_or(0) * 1000 / kSampleRate);
  const auto last = Clock::now() + std::min<std::chrono::milliseconds>(delay, kDrainLimit);
  while (!stop_ && Clock::now() < last) Linger();
  if (!stop_) Hear(written_);
  output_->Drop();
}

void AlsaStream::Linger() {
  std::this_thread::sleep_for(std::chrono::milliseconds(kPatienceMs));
  Listen();
}

void AlsaStream::Listen() {
  if (const auto ahead = output_->Ahead()) Hear(written_ - *ahead);
}

void AlsaStream::Hear(std::int64_t frame) {
  heard_ = std::max<std::int64_t>(heard_, frame);
  if (calls_.Heard) calls_.Heard(heard_);
}

namespace {

class Stream final : public SoundStream {
 public:
  Stream(EventLoop& loop, const OutputVolume& volume, SoundOutput::Source source,
         std::function<void()> ended, int aheadMs)
      : token_(std::make_shared<std::function<void()>>(std::move(ended))),
        stream_({std::move(source),
                 {},
                 [&loop, watch = std::weak_ptr(token_)] {
                   loop.Post([watch] {
                     const auto call = watch.lock();
                     if (call && *call) (*call)();
                   });
                 }},
                volume, aheadMs) {}

  std::int64_t Heard() const override { return stream_.Heard(); }

 private:
  // A call that is posted before the end of this object is dropped after it.
  std::shared_ptr<std::function<void()>> token_;
  AlsaStream stream_;
};

}  // namespace

std::unique_ptr<SoundStream> AlsaSoundOutput::Play(Source source, std::function<void()> ended,
                                                   int aheadMs) {
  return std::make_unique<Stream>(loop_, volume_, std::move(source), std::move(ended), aheadMs);
}

}  // namespace vantora
