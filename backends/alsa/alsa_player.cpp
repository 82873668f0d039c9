#include "backends/alsa/alsa_player.h"

#include "backends/alsa/alsa_output.h"
#include "backends/sound/wave_file.h"

#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <deque>
#include <functional>
#include <thread>
#include <vector>

namespace vantora {

namespace {

constexpr int kRate = 44100;
constexpr std::int64_t kFrameBytes = 4;
constexpr std::int64_t kBlockFrames = 2205;  // 50 ms: a level each
constexpr int kPatienceMs = 20;
constexpr auto kDrainLimit = std::chrono::seconds(2);

struct Level {
  std::int64_t frame;  // at which it has been heard
  int left, right;
};

Level Peaks(const std::vector<std::int16_t>& sound, std::int64_t frames) {
  Level level{0, 0, 0};
  for (std::size_t i = 0; i < static_cast<std::size_t>(frames); ++i) {
    level.left = std::max(level.left, std::abs(static_cast<int>(sound[2 * i])));
    level.right = std::max(level.right, std::abs(static_cast<int>(sound[2 * i + 1])));
  }
  level.left = std::min(level.left, 32767);
  level.right = std::min(level.right, 32767);
  return level;
}

}  // namespace

// One sound, from its start to its end. `tell` brings work to the interface thread.
class AlsaPlayer::Voice {
 public:
  using Tell = std::function<void(std::function<void(AlsaPlayer&)>)>;

  Voice(Dateien& dateien, const Text& file, Tell tell) : wave_(dateien), tell_(std::move(tell)) {
    wave_.Open(file);
    if (wave_.SampleRate() != kRate || wave_.BitsPerSample() != 16 || wave_.StereoMode() != 1) {
      throw Laufzeitfehler(kFehlerEinAusgabe, L"El archivo no tiene la calidad de un CD.");
    }
    wave_.SetPosition(0);
    output_ = std::make_unique<AlsaOutput>();
    thread_ = std::thread([this] { Play(); });
  }
  ~Voice() { Stop(); }
  Voice(const Voice&) = delete;
  Voice& operator=(const Voice&) = delete;

  void Stop() {
    stop_ = true;
    if (thread_.joinable()) thread_.join();
  }
  std::int64_t Heard() const { return heard_; }

 private:
  void Play() {
    tell_([](AlsaPlayer& player) {
      if (player.OnStart) player.OnStart();
    });
    try {
      std::vector<std::int16_t> sound(kBlockFrames * 2);
      while (!stop_) {
        const std::size_t bytes = wave_.Read(sound.data(), sound.size() * sizeof(std::int16_t));
        const auto frames = static_cast<std::int64_t>(bytes) / kFrameBytes;
        if (frames == 0) break;
        levels_.push_back(Peaks(sound, frames));
        levels_.back().frame = written_ + frames;
        HandOver(sound, frames);
      }
      Drain();
    } catch (const Laufzeitfehler&) {
      // The file or the card went away while playing: that is the end of the sound, as OnStop says.
    }
    output_.reset();  // the card is free for others
    wave_.Close();
    if (stop_) return;  // who stops it tells it
    tell_([](AlsaPlayer& player) { player.Ended(); });
  }

  void HandOver(const std::vector<std::int16_t>& sound, std::int64_t frames) {
    for (std::int64_t given = 0; given < frames && !stop_;) {
      const std::int64_t taken =
          output_->Write(&sound[static_cast<std::size_t>(given) * 2], frames - given, kPatienceMs);
      given += taken;
      written_ += taken;
      Listen();
    }
  }

  void Drain() {
    using Clock = std::chrono::steady_clock;
    if (!stop_) output_->Begin();
    const auto limit = Clock::now() + kDrainLimit;
    while (!stop_ && !output_->Empty() && Clock::now() < limit) Linger();
    // The rest is heard after the delay that there is now; when nothing follows it stays as it is.
    const std::chrono::milliseconds delay(output_->Ahead().value_or(0) * 1000 / kRate);
    const auto last = Clock::now() + std::min<std::chrono::milliseconds>(delay, kDrainLimit);
    while (!stop_ && Clock::now() < last) Linger();
    if (!stop_) Hear(written_);
    output_->Drop();
  }

  void Linger() {
    std::this_thread::sleep_for(std::chrono::milliseconds(kPatienceMs));
    Listen();
  }

  void Listen() {
    if (const auto ahead = output_->Ahead()) Hear(written_ - *ahead);
  }

  // Notes how far the sound has been heard, and shows the levels of what has been.
  void Hear(std::int64_t frame) {
    heard_ = std::max<std::int64_t>(heard_, frame);
    while (!levels_.empty() && levels_.front().frame <= heard_) {
      tell_([level = levels_.front()](AlsaPlayer& player) {
        if (player.OnLevel) player.OnLevel(level.left, level.right);
      });
      levels_.pop_front();
    }
  }

  WaveFile wave_;
  Tell tell_;
  std::unique_ptr<AlsaOutput> output_;
  std::deque<Level> levels_;
  std::int64_t written_ = 0;
  std::atomic<std::int64_t> heard_{0};
  std::atomic<bool> stop_{false};
  std::thread thread_;
};

AlsaPlayer::AlsaPlayer(Dateien& dateien, EventLoop& loop) : dateien_(dateien), loop_(loop) {}

AlsaPlayer::~AlsaPlayer() = default;

void AlsaPlayer::Start() {
  Stop();
  if (stopUntold_) Ended();  // the end of the sound before must not look like the end of this one
  token_ = std::make_shared<int>(0);
  voice_.reset();  // some cards play one sound at a time
  voice_ = std::make_unique<Voice>(
      dateien_, file_,
      [this, watch = std::weak_ptr<int>(token_)](std::function<void(AlsaPlayer&)> work) {
        loop_.Post([this, watch, work = std::move(work)] {
          if (!watch.expired()) work(*this);
        });
      });
  playing_ = true;
  stopUntold_ = true;
}

void AlsaPlayer::Stop() {
  if (!playing_) return;
  voice_->Stop();
  playing_ = false;
  token_ = std::make_shared<int>(0);  // what the voice still had to say is not told
  loop_.Post([this, watch = std::weak_ptr<int>(token_)] {
    if (!watch.expired()) Ended();
  });
}

std::int64_t AlsaPlayer::Position() const {
  return voice_ ? voice_->Heard() : 0;
}

void AlsaPlayer::Ended() {
  playing_ = false;
  if (!stopUntold_) return;
  stopUntold_ = false;
  if (OnStop) OnStop();
}

}  // namespace vantora
