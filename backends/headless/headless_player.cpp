#include "backends/headless/headless_player.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace vantora {

namespace {

constexpr int kTickMs = 50;  // 20 levels a second
constexpr int kLoudest = 32767;

// Returns the sample at `at` on the scale of 16 bits. Samples of 8 bits have their zero at 128.
int Loudness(const unsigned char* at, int bits) {
  if (bits == 8) return std::abs(*at - 128) * 256;
  const unsigned char* top = at + bits / 8 - 2;
  return std::abs(static_cast<std::int16_t>(top[0] | (top[1] << 8)));
}

}  // namespace

struct HeadlessPlayer::Voice {
  std::unique_ptr<MMWave> File;
  std::int64_t StartTicks = 0;
  std::int64_t LengthMs = 0;  // from the first frame played
  std::int64_t From = 0;      // the first frame played

  int Channels() const { return File->StereoMode() + 1; }
  int FrameBytes() const { return Channels() * File->BitsPerSample() / 8; }

  // Returns the loudest samples of both sides between `ms` and the next level.
  std::pair<int, int> Peaks(std::int64_t ms) const {
    if (File->BitsPerSample() < 8) return {0, 0};
    const std::int64_t from = From + ms * File->SampleRate() / 1000;
    const std::int64_t frames = std::int64_t{kTickMs} * File->SampleRate() / 1000;
    std::vector<unsigned char> bytes(static_cast<std::size_t>(frames * FrameBytes()));
    File->SetPosition(from * FrameBytes());
    bytes.resize(File->Read(bytes.data(), bytes.size()));
    int left = 0, right = 0;
    const int bits = File->BitsPerSample();
    const auto step = static_cast<std::size_t>(FrameBytes());
    const std::size_t second = Channels() > 1 ? static_cast<std::size_t>(bits / 8) : 0;
    for (std::size_t at = 0; at + step <= bytes.size(); at += step) {
      left = std::max(left, Loudness(&bytes[at], bits));
      right = std::max(right, Loudness(&bytes[at + second], bits));
    }
    return {std::min(left, kLoudest), std::min(right, kLoudest)};
  }
};

HeadlessPlayer::HeadlessPlayer(EventLoop& loop, Clock& clock, HeadlessSoundCard& card,
                               NewWaveFile newWaveFile)
    : loop_(loop),
      clock_(clock),
      card_(card),
      newWaveFile_(std::move(newWaveFile)),
      alive_(std::make_shared<bool>(true)) {}

HeadlessPlayer::~HeadlessPlayer() {
  *alive_ = false;
}

void HeadlessPlayer::Start() {
  Stop();
  if (!card_.Present) {
    throw Laufzeitfehler(kFehlerEinAusgabe, L"No se encuentra ninguna tarjeta de sonido.");
  }
  const auto voice = std::make_shared<Voice>();
  voice->File = newWaveFile_();
  voice->File->Open(file_);
  const int rate = std::max(voice->File->SampleRate(), 1);
  voice->From = std::min(from_ / std::max(voice->FrameBytes(), 1), voice->File->Samples());
  voice->LengthMs = ((voice->File->Samples() - voice->From) * 1000 + rate - 1) / rate;
  voice->StartTicks = clock_.Ticks();
  voice_ = voice;
  card_.Played.push_back(file_);
  card_.From = from_;
  loop_.Post([this, alive = alive_, voice] {
    if (!*alive || voice_ != voice) return;
    if (OnStart) OnStart();
    if (*alive && voice_ == voice) Tick(voice);
  });
}

void HeadlessPlayer::Tick(const std::shared_ptr<Voice>& voice) {
  const std::int64_t passed = clock_.Ticks() - voice->StartTicks;
  const std::int64_t left = voice->LengthMs - passed;
  if (left <= 0) {
    End();
    return;
  }
  const auto alive = alive_;
  if (OnLevel) {
    const auto [peakLeft, peakRight] = voice->Peaks(passed);
    OnLevel(peakLeft, peakRight);
  }
  if (!*alive || voice_ != voice) return;
  loop_.PostAfter(static_cast<int>(std::min<std::int64_t>(left, kTickMs)), [this, alive, voice] {
    if (*alive && voice_ == voice) Tick(voice);
  });
}

void HeadlessPlayer::Stop() {
  if (voice_) End();
}

void HeadlessPlayer::End() {
  lastPosition_ = Position();
  voice_.reset();
  loop_.Post([this, alive = alive_] {
    if (*alive && OnStop) OnStop();
  });
}

std::int64_t HeadlessPlayer::Position() const {
  if (!voice_) return lastPosition_;
  const std::int64_t heard =
      (clock_.Ticks() - voice_->StartTicks) * voice_->File->SampleRate() / 1000;
  return std::min(heard, voice_->File->Samples() - voice_->From);
}

std::function<std::unique_ptr<MMWavePlayerX>()> HeadlessPlayers(
    EventLoop& loop, Clock& clock, HeadlessSoundCard& card,
    HeadlessPlayer::NewWaveFile newWaveFile) {
  return [&loop, &clock, &card, make = std::move(newWaveFile)] {
    return std::make_unique<HeadlessPlayer>(loop, clock, card, make);
  };
}

}  // namespace vantora
