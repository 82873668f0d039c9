#include "backends/sound/chain/wave_out.h"

#include "platform/cd_sound.h"
#include "platform/laufzeitfehler.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr std::int64_t kBufferFrames = kBufferBytes / kFrameBytes;
constexpr int kTurnMs = 15;
constexpr int kDeviceMs = 80;  // ahead in the device
constexpr int kGraceMs = 40;   // how long a pause may be the beginning of a rewiring
// Who asks for the position and then pauses has moved the range by a little less than was heard.
constexpr std::int64_t kSlackFrames = 2205;

}  // namespace

void WaveOut::Open() {
  if (state_ != Closed) return;
  state_ = Stopped;
  failed_ = false;
}

void WaveOut::Close() {
  Stop();
  state_ = Closed;
}

void WaveOut::Start() {
  try {
    if (!GoOn()) StartAnew();
  } catch (const Laufzeitfehler&) {
    Halt(true);  // as the position tells
  }
}

void WaveOut::StartAnew() {
  Stop();
  failed_ = false;
  place_ = round_ = 0;
  roundsDone_ = 0;
  rangeStart_ = RangeStart();
  queue_ = std::make_shared<SoundQueue>(NumBuffers * 2, 0);
  Rewind();
  Receive();
  state_ = Running;
  Sound();
}

// What is fetched here lies ahead before the device asks for the first time.
void WaveOut::Sound() {
  const std::int64_t enough = place_ + std::max(NumBuffers / 4, 1) * kBufferFrames;
  while (!queue_->Closed() && queue_->End() < enough) Fetch(*queue_);
  if (queue_->Closed() && queue_->End() == place_) return Halt(false);
  stream_ =
      output_.Play([queue = queue_](std::int16_t* target,
                                    std::size_t frames) { return queue->Take(target, frames); },
                   [this] { Ended(); }, kDeviceMs);
  Run();
}

void WaveOut::Stop() {
  if (state_ == Closed || state_ == Stopped) return;
  Halt(false);
}

void WaveOut::Halt(bool failed) {
  place_ = Heard();
  stream_.reset();
  token_.reset();
  failed_ = failed;
  state_ = Stopped;
}

// The device goes on for a moment; a pause that stays one goes back to where it was asked for.
void WaveOut::Pause() {
  if (state_ != Running) return;
  place_ = Heard();
  state_ = Paused;
  token_ = std::make_shared<int>(0);
  loop_.PostAfter(kGraceMs, [this, watch = std::weak_ptr<int>(token_)] {
    if (!watch.expired()) stream_.reset();
  });
}

void WaveOut::Restart() {
  if (state_ != Paused) return;
  state_ = Running;
  if (stream_) return Run();
  queue_->Resume(place_);
  try {
    Sound();
  } catch (const Laufzeitfehler&) {
    Halt(true);
  }
}

std::int64_t WaveOut::Heard() const {
  return state_ == Running && stream_ ? queue_->Place(stream_->Heard()) : place_;
}

std::int64_t WaveOut::Position() const {
  if (failed_) return -1;
  if (!queue_) return 0;
  const std::int64_t heard = Heard();
  return (heard - queue_->Round(heard)) * kFrameBytes;
}

// ---- rewiring ----

// Where the range begins in the file that the chain comes from, in frames.
std::int64_t WaveOut::RangeStart() {
  MMComponentX* source = this;
  while (source->Input() != nullptr) source = source->Input();
  const auto* file = dynamic_cast<const MMWaveFileX*>(source);
  if (file == nullptr) return 0;
  const std::int64_t start = file->Wave.PlayStart;
  return file->Wave.TimeFormat == TimeFormat::tfByte ? start / kFrameBytes : start;
}

// The new sound lies on the old one's row. So much of it is fetched as the device has already got
// of the old one, and a little more.
bool WaveOut::GoOn() {
  if (state_ != Paused || !stream_) return false;
  const std::int64_t range = RangeStart();
  const std::int64_t round = queue_->Round(place_);
  const std::int64_t start = round + range - rangeStart_;
  if (start <= round || start > place_ || start < place_ - kSlackFrames) return false;
  rangeStart_ = range;
  round_ = start;
  roundsDone_ = 0;
  SoundQueue next(NumBuffers * 2, start);
  Rewind();
  while (!next.Full() && !next.Closed() && next.End() <= queue_->Given() + kBufferFrames) {
    Fetch(next);
  }
  if (!queue_->Replace(next)) return false;
  state_ = Running;
  Run();
  return true;
}

// ---- the loop's turns ----

void WaveOut::Run() {
  token_ = std::make_shared<int>(0);
  Turn();
}

void WaveOut::Turn() {
  const std::weak_ptr<int> watch = token_;
  const std::int64_t heard = Heard();
  for (MMData data; queue_->NextHeard(heard, data);) {
    Push(data);
    if (watch.expired()) return;
  }
  try {
    while (Room(heard)) {
      Fetch(*queue_);
      if (watch.expired()) return;
    }
  } catch (const Laufzeitfehler&) {
    return Halt(true);  // as the position tells
  }
  loop_.PostAfter(kTurnMs, [this, watch] {
    if (!watch.expired()) Turn();
  });
}

// A device that keeps much to itself still gets its sound.
bool WaveOut::Room(std::int64_t heard) const {
  if (queue_->Closed() || queue_->Full()) return false;
  const auto buffer = static_cast<std::int64_t>(BufferSize) / kFrameBytes;
  const std::int64_t end = queue_->End() + buffer;
  return end - heard <= NumBuffers * buffer || end - queue_->Given() <= NumBuffers / 4 * buffer;
}

void WaveOut::Fetch(SoundQueue& queue) {
  MMData data;
  Pull(data);
  if (data.Bytes == 0 && Loop && roundsDone_ < LoopCount) {
    ++roundsDone_;
    round_ = queue.End();
    Rewind();
    Pull(data);  // nothing again: an empty range
  }
  if (data.Bytes == 0) return queue.Close();
  queue.Append(data, round_);
}

void WaveOut::Ended() {
  if (state_ != Running) {
    stream_.reset();
    return;
  }
  const std::int64_t heard = Heard();
  const bool whole = queue_->Closed() && heard >= queue_->End();
  const std::weak_ptr<int> watch = token_;
  for (MMData data; queue_->NextHeard(heard, data);) {
    Push(data);
    if (watch.expired()) return;
  }
  Halt(!whole);  // a card that has gone ends the sound too soon
}

}  // namespace vantora
