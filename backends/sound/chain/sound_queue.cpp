#include "backends/sound/chain/sound_queue.h"

#include <algorithm>
#include <cmath>

namespace vantora {

namespace {

constexpr int kJointFrames = 220;  // 5 ms
constexpr std::size_t kStretches = 64;

}  // namespace

SoundQueue::SoundQueue(int buffers, std::int64_t place)
    : ring_(static_cast<std::size_t>(std::max(buffers, 1))),
      end_(place),
      given_(place),
      round_(place) {
  stretches_.reserve(kStretches);
}

bool SoundQueue::Full() const {
  const std::lock_guard lock(guard_);
  return count_ == ring_.size();
}

std::int64_t SoundQueue::End() const {
  const std::lock_guard lock(guard_);
  return end_;
}

std::int64_t SoundQueue::Given() const {
  const std::lock_guard lock(guard_);
  return given_;
}

void SoundQueue::Append(const MMData& data, std::int64_t round) {
  const std::lock_guard lock(guard_);
  Piece& piece = ring_[(first_ + count_) % ring_.size()];
  CopyWaveHeader(data, piece.Sound.Samples.data(), data.Bytes);
  piece.Sound.Bytes = data.Bytes;
  piece.Start = end_;
  piece.Round = round;
  end_ = piece.End();
  ++count_;
}

void SoundQueue::Close() {
  const std::lock_guard lock(guard_);
  closed_ = true;
}

bool SoundQueue::Closed() const {
  const std::lock_guard lock(guard_);
  return closed_;
}

bool SoundQueue::NextHeard(std::int64_t heard, MMData& data) {
  const std::lock_guard lock(guard_);
  if (count_ == 0 || At(0).End() > heard) return false;
  FillWaveHeader(data, At(0).Sound.Samples.data(), At(0).Sound.Bytes);
  round_ = At(0).Round;
  first_ = (first_ + 1) % ring_.size();
  --count_;
  return true;
}

std::int64_t SoundQueue::Place(std::int64_t deviceFrames) {
  const std::lock_guard lock(guard_);
  while (stretches_.size() > 1 && stretches_[1].Device <= deviceFrames) {
    stretches_.erase(stretches_.begin());
  }
  if (stretches_.empty()) return given_;
  const Stretch& now = stretches_.front();
  return now.Place + std::clamp<std::int64_t>(deviceFrames - now.Device, 0, now.Frames);
}

std::int64_t SoundQueue::Round(std::int64_t place) const {
  const std::lock_guard lock(guard_);
  std::int64_t round = round_;
  for (std::size_t i = 0; i < count_ && At(i).Start <= place; ++i) round = At(i).Round;
  return round;
}

void SoundQueue::Resume(std::int64_t place) {
  const std::lock_guard lock(guard_);
  given_ = place;
  device_ = 0;
  stretches_.clear();
  silent_ = false;
  joint_ = true;
  last_ = {};
}

bool SoundQueue::Replace(SoundQueue& other) {
  const std::lock_guard lock(guard_);
  if (closed_ && given_ >= end_) return false;
  for (std::size_t i = 0; i < count_; ++i) {  // the sample that would have come next
    const std::int64_t inside = given_ - At(i).Start;
    if (inside >= 0 && given_ < At(i).End()) {
      std::copy_n(At(i).Sound.Samples.data() + inside * 2, 2, last_.data());
    }
  }
  ring_.swap(other.ring_);
  first_ = other.first_;
  count_ = other.count_;
  end_ = other.end_;
  closed_ = other.closed_;
  round_ = other.round_;
  joint_ = true;
  return true;
}

int SoundQueue::Underruns() const {
  const std::lock_guard lock(guard_);
  return underruns_;
}

std::size_t SoundQueue::Take(std::int16_t* target, std::size_t frames) {
  const std::lock_guard lock(guard_);
  const std::size_t sound = TakeSound(target, frames);
  if (sound == frames || closed_) return sound;
  if (!silent_) {
    ++underruns_;
    joint_ = true;
  }
  silent_ = true;
  std::fill(target + sound * 2, target + frames * 2, std::int16_t{0});
  Join(target + sound * 2, frames - sound);
  device_ += static_cast<std::int64_t>(frames - sound);
  return frames;
}

std::size_t SoundQueue::TakeSound(std::int16_t* target, std::size_t frames) {
  std::size_t done = 0;
  for (std::size_t i = 0; i < count_ && done < frames; ++i) {
    const Piece& piece = At(i);
    if (given_ < piece.Start || given_ >= piece.End()) continue;
    const std::int64_t some =
        std::min(piece.End() - given_, static_cast<std::int64_t>(frames - done));
    std::copy_n(piece.Sound.Samples.data() + (given_ - piece.Start) * 2, some * 2,
                target + done * 2);
    Note(some);
    given_ += some;
    device_ += some;
    done += static_cast<std::size_t>(some);
  }
  if (done == 0) return 0;
  if (silent_) joint_ = true;
  silent_ = false;
  Join(target, done);
  return done;
}

void SoundQueue::Note(std::int64_t frames) {
  if (!stretches_.empty()) {
    Stretch& last = stretches_.back();
    if (last.Device + last.Frames == device_ && last.Place + last.Frames == given_) {
      last.Frames += frames;
      return;
    }
  }
  if (stretches_.size() == kStretches) stretches_.erase(stretches_.begin());
  stretches_.push_back({device_, given_, frames});
}

void SoundQueue::Join(std::int16_t* target, std::size_t frames) {
  for (std::size_t ear = 0; ear < 2 && joint_; ++ear) {
    step_[ear] = static_cast<float>(last_[ear] - target[ear]);
    stepLeft_ = kJointFrames;
  }
  joint_ = false;
  for (std::size_t i = 0; i < frames && stepLeft_ > 0; ++i, --stepLeft_) {
    const float rest = static_cast<float>(stepLeft_) / kJointFrames;
    for (std::size_t ear = 0; ear < 2; ++ear) {
      std::int16_t& sample = target[i * 2 + ear];
      const float joined = static_cast<float>(sample) + step_[ear] * rest * rest;
      sample = static_cast<std::int16_t>(std::lrint(std::clamp(joined, -32768.0F, 32767.0F)));
    }
  }
  last_ = {target[frames * 2 - 2], target[frames * 2 - 1]};
}

}  // namespace vantora
