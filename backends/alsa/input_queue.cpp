#include "backends/alsa/input_queue.h"

#include "platform/cd_sound.h"

#include <algorithm>
#include <utility>

namespace vantora {

bool InputQueue::Append(const std::int16_t* sound, std::size_t frames, std::int64_t ticks,
                        std::int64_t lostMs) {
  const std::lock_guard<std::mutex> lock(guard_);
  const std::size_t before = count_;
  part_.LostMs += lostMs;
  for (std::size_t done = 0; done < frames;) {
    const std::size_t there = part_.Data.Bytes / 4;
    const std::size_t some = std::min(frames - done, kFrames - there);
    std::copy_n(sound + done * 2, some * 2, part_.Data.Samples.begin() + there * 2);
    part_.Data.Bytes += some * 4;
    done += some;
    if (part_.Data.Bytes < kBufferBytes) break;
    const auto behind = static_cast<std::int64_t>(frames - done);
    part_.Ticks = lastTicks_ = std::max(lastTicks_, ticks - behind * 1000 / kSampleRate);
    Store();
  }
  return before == 0 && count_ > 0;
}

void InputQueue::Store() {
  constexpr auto kBufferFrames = static_cast<std::int64_t>(kFrames);
  if (part_.Ticks <= skipped_) {
    part_ = {};
    return;
  }
  if (count_ == ring_.size()) {
    const std::int64_t lost = part_.LostMs + kBufferFrames * 1000 / kSampleRate;
    part_ = {};
    part_.LostMs = lost;
    return;
  }
  ring_[(first_ + count_) % ring_.size()] = part_;
  ++count_;
  part_ = {};
}

void InputQueue::End() {
  const std::lock_guard<std::mutex> lock(guard_);
  ended_ = true;
}

bool InputQueue::Next(CapturedSound& sound) {
  const std::lock_guard<std::mutex> lock(guard_);
  if (count_ == 0) return false;
  sound = ring_[first_];
  --count_;
  // An empty ring starts again at its beginning, so its memory stays in the processor's cache.
  first_ = count_ == 0 ? 0 : (first_ + 1) % ring_.size();
  return true;
}

void InputQueue::Skip(std::int64_t ticks) {
  const std::lock_guard<std::mutex> lock(guard_);
  skipped_ = ticks;
  count_ = 0;
  part_ = {};
}

bool InputQueue::Gone() const {
  const std::lock_guard<std::mutex> lock(guard_);
  return ended_ && count_ == 0;
}

}  // namespace vantora
