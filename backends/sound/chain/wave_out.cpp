#include "backends/sound/chain/wave_out.h"

#include "platform/cd_sound.h"
#include "platform/laufzeitfehler.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr std::int64_t kBufferFrames = kBufferBytes / kFrameBytes;
constexpr int kTurnMs = 15;
constexpr int kDeviceMs = 80;  // buffered in the device
constexpr int kGraceMs = 40;   // during this time a pause may be part of a rewiring
// A caller that reads the position, moves the range and then pauses has set a position slightly
// before the place heard by then.
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
    Halt(true);  // Position() then returns -1
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

// Fetches enough sound before the device starts to read.
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

// The device goes on playing for a moment, in case this is a rewiring. Otherwise playing resumes
// later from the place heard at the pause.
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

// The frame at which the range begins in the file at the head of the chain.
std::int64_t WaveOut::RangeStart() {
  MMComponentX* source = this;
  while (source->Input() != nullptr) source = source->Input();
  const auto* file = dynamic_cast<const MMWaveFileX*>(source);
  if (file == nullptr) return 0;
  const std::int64_t start = file->Wave.PlayStart;
  return file->Wave.TimeFormat == TimeFormat::tfByte ? start / kFrameBytes : start;
}

// Continues a pause as a rewiring. The new sound gets the same places as the old one, and is
// fetched up to a little beyond the place that the device has already read.
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
    return Halt(true);  // Position() then returns -1
  }
  loop_.PostAfter(kTurnMs, [this, watch] {
    if (!watch.expired()) Turn();
  });
}

// The second condition serves devices with a large buffer of their own.
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
    Pull(data);  // empty again when the range is empty
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
  Halt(!whole);  // without all sound heard, the card is gone
}

}  // namespace vantora
