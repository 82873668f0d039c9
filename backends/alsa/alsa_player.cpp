#include "backends/alsa/alsa_player.h"

#include "backends/alsa/alsa_stream.h"
#include "backends/sound/files/wave_file.h"

#include "platform/cd_sound.h"
#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <cstdlib>
#include <deque>
#include <functional>
#include <utility>

namespace vantora {

namespace {

struct Level {
  std::int64_t frame;  // the level is shown once this frame has been heard
  int left, right;
};

Level Peaks(const std::int16_t* sound, std::size_t frames) {
  Level level{0, 0, 0};
  for (std::size_t i = 0; i < frames; ++i) {
    level.left = std::max(level.left, std::abs(static_cast<int>(sound[2 * i])));
    level.right = std::max(level.right, std::abs(static_cast<int>(sound[2 * i + 1])));
  }
  level.left = std::min(level.left, 32767);
  level.right = std::min(level.right, 32767);
  return level;
}

}  // namespace

// One playing of a sound, from its start to its end. `tell` posts work to the interface thread.
class AlsaPlayer::Voice {
 public:
  using Tell = std::function<void(std::function<void(AlsaPlayer&)>)>;

  Voice(Dateien& dateien, const OutputVolume& volume, const Text& file, std::int64_t from,
        Tell tell)
      : wave_(dateien), tell_(std::move(tell)) {
    wave_.Open(file);
    if (wave_.SampleRate() != kSampleRate || wave_.BitsPerSample() != kSampleBits ||
        wave_.StereoMode() != 1) {
      throw Laufzeitfehler(kFehlerEinAusgabe, L"El archivo no tiene la calidad de un CD.");
    }
    wave_.SetPosition(std::clamp<std::int64_t>(from, 0, wave_.DataBytes()));
    stream_ = std::make_unique<AlsaStream>(
        AlsaStream::Calls{
            [this](std::int16_t* target, std::size_t frames) { return Give(target, frames); },
            [this](std::int64_t frame) { ShowLevels(frame); },
            [this] {
              wave_.Close();
              tell_([](AlsaPlayer& player) { player.Ended(); });
            }},
        volume);
  }

  void Stop() {
    stream_->Stop();
    wave_.Close();
  }
  std::int64_t Heard() const { return stream_->Heard(); }

 private:
  std::size_t Give(std::int16_t* target, std::size_t frames) {
    if (given_ == 0) {
      tell_([](AlsaPlayer& player) {
        if (player.OnStart) player.OnStart();
      });
    }
    std::size_t read = 0;
    try {
      read = wave_.Read(target, frames * kFrameBytes) / kFrameBytes;
    } catch (const Laufzeitfehler&) {
      // The file became unreadable while playing. The sound ends here, and OnStop follows as usual.
    }
    given_ += static_cast<std::int64_t>(read);
    if (read > 0) {
      levels_.push_back(Peaks(target, read));  // one level for each block of the stream
      levels_.back().frame = given_;
    }
    return read;
  }

  // Posts the levels of the frames that have been heard.
  void ShowLevels(std::int64_t heard) {
    while (!levels_.empty() && levels_.front().frame <= heard) {
      tell_([level = levels_.front()](AlsaPlayer& player) {
        if (player.OnLevel) player.OnLevel(level.left, level.right);
      });
      levels_.pop_front();
    }
  }

  WaveFile wave_;
  Tell tell_;
  std::deque<Level> levels_;
  std::int64_t given_ = 0;
  std::unique_ptr<AlsaStream> stream_;  // last, since its thread uses all other members
};

AlsaPlayer::AlsaPlayer(Dateien& dateien, EventLoop& loop, const OutputVolume& volume)
    : dateien_(dateien), loop_(loop), volume_(volume) {}

AlsaPlayer::~AlsaPlayer() = default;

void AlsaPlayer::Start() {
  Stop();
  // Reports the end of the sound before, so that it is not taken for the end of this one.
  if (stopPending_) Ended();
  token_ = std::make_shared<int>(0);
  voice_.reset();  // closes the card first: some cards play only one sound at a time
  voice_ = std::make_unique<Voice>(
      dateien_, volume_, file_, from_,
      [this, watch = std::weak_ptr<int>(token_)](std::function<void(AlsaPlayer&)> work) {
        loop_.Post([this, watch, work = std::move(work)] {
          if (!watch.expired()) work(*this);
        });
      });
  playing_ = true;
  stopPending_ = true;
}

void AlsaPlayer::Stop() {
  if (!playing_) return;
  voice_->Stop();
  playing_ = false;
  token_ = std::make_shared<int>(0);  // events that the voice has already posted are dropped
  loop_.Post([this, watch = std::weak_ptr<int>(token_)] {
    if (!watch.expired()) Ended();
  });
}

std::int64_t AlsaPlayer::Position() const {
  return voice_ ? voice_->Heard() : 0;
}

void AlsaPlayer::Ended() {
  playing_ = false;
  if (!stopPending_) return;
  stopPending_ = false;
  if (OnStop) OnStop();
}

}  // namespace vantora
