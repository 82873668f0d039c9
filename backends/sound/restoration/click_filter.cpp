#include "backends/sound/restoration/click_filter.h"

#include <algorithm>
#include <cmath>

namespace vantora {

namespace {

constexpr float kMedianOfNormal = 0.6745F;  // of the magnitudes, in standard deviations
constexpr float kLeastError = 0.5F;         // what counts as usual in silence, in 16-bit units
constexpr float kEdgeOfDamage = 0.4F;       // of the limit: where damage that was found ends
constexpr float kTrace = 0.3F;       // of the error's energy, which music leaves and damage not
constexpr std::size_t kBlind = 8;    // samples behind a gap that it takes to tell the two
constexpr float kBlindTimes = 1.5F;  // the limit where there are fewer

}  // namespace

ClickFilter::ClickFilter(Damage damage)
    : damage_(damage),
      model_(kPast + kBlock),
      heard_(kPast + kBlock),
      repaired_(kPast + kBlock),
      error_(kPast + kBlock),
      sorted_(kStretch) {
  gaps_.reserve(kBlock);
}

void ClickFilter::Process(float level, float* sound, std::size_t count) {
  length_ = kPast + count;
  std::copy_n(sound, count, heard_.begin() + kPast);
  std::copy_n(heard_.begin(), length_, repaired_.begin());
  gaps_.clear();
  const bool on = level > 0;
  const Measure measure = MeasureOf(level);
  if (on) {
    model_.Fit(heard_.data(), length_);
    Search(measure);
    const int rounds = damage_ == Damage::kClicks ? 1 : 2;
    for (int round = 0; round < rounds && !gaps_.empty(); ++round) {
      std::copy_n(heard_.begin(), length_, repaired_.begin());
      for (const Gap& gap : gaps_) model_.Fill(repaired_.data(), gap.First, gap.Count, length_);
      model_.Fit(repaired_.data(), length_);
      model_.Filter(heard_.data(), length_);
      Search(measure);
    }
    Repair();
  }
  std::copy_n(repaired_.begin() + kPast, count, sound);
  if (on && open_ > 0) GoOn(sound, count);
  Keep(sound, count);
}

ClickFilter::Measure ClickFilter::MeasureOf(float level) const {
  const float s = std::clamp(level, 0.0F, 1.0F), mild = (1 - s) * (1 - s);
  if (damage_ == Damage::kClicks) {
    const float times = 3.5F + 9 * mild;
    return {times, 0.3F * times, 16 + static_cast<std::size_t>(128 * s)};
  }
  return {3 + 8 * mild, 0, 4 + static_cast<std::size_t>(16 * s)};
}

// The limit over which a sample is suspected, for each stretch. That of a neighbour counts too, so
// that the music's own changes are not taken for damage.
void ClickFilter::MeasureStretches(const Measure& measure) {
  const float* const forward = model_.Forward();
  const float* const backward = model_.Backward();
  std::array<float, kStretches> usual{}, peak{};
  std::size_t count = 0;
  for (; count * kStretch < length_; ++count) {
    const std::size_t from = std::min(count * kStretch, length_ - kStretch);
    for (std::size_t i = 0; i < kStretch; ++i) {
      sorted_[i] = std::abs(forward[from + i]);
      error_[from + i] = std::min(sorted_[i], std::abs(backward[from + i]));
      peak[count] = std::max(peak[count], error_[from + i]);
    }
    const auto middle = sorted_.begin() + kStretch / 2;
    std::nth_element(sorted_.begin(), middle, sorted_.end());
    usual[count] = std::max(*middle / kMedianOfNormal, kLeastError);
  }
  std::nth_element(peak.begin(), peak.begin() + static_cast<std::ptrdiff_t>(count / 2),
                   peak.begin() + static_cast<std::ptrdiff_t>(count));
  const float crest = measure.Crest * peak[count / 2];
  for (std::size_t i = 0; i < count; ++i) {
    const float around =
        std::max({usual[i > 0 ? i - 1 : 0], usual[i], usual[std::min(i + 1, count - 1)]});
    limit_[i] = std::max(measure.Times * around, crest);
  }
}

void ClickFilter::Search(const Measure& measure) {
  MeasureStretches(measure);
  gaps_.clear();
  std::size_t from = kPast;  // where a gap may begin
  for (std::size_t i = kPast; i < length_; ++i) {
    const float limit = limit_[i / kStretch] * (i + kBlind < length_ ? 1 : kBlindTimes);
    if (error_[i] <= limit) continue;
    Gap gap{i, 1};
    Extend(gap, from);
    from = i = gap.First + gap.Count;
    if (gap.Count <= measure.Longest) gaps_.push_back(gap);
  }
}

void ClickFilter::Extend(Gap& gap, std::size_t from) const {
  const std::size_t bridge = damage_ == Damage::kClicks ? 6 : 2;  // good samples within damage
  const float edge = kEdgeOfDamage * limit_[gap.First / kStretch];
  std::size_t end = gap.First + 1;
  for (std::size_t i = end; i < length_ && i < end + bridge; ++i) {
    if (error_[i] > edge) end = i + 1;
  }
  for (std::size_t i = gap.First; i > from && i + bridge > gap.First; --i) {
    if (error_[i - 1] > edge) gap.First = i - 1;
  }
  gap.Count = end - gap.First;
}

void ClickFilter::Repair() {
  // What had to be foretold is known better now that its right side is there. It has been heard as
  // it was, but what comes is measured against it.
  if (open_ > 0) {
    Gap gap{kPast - open_, open_};
    if (!gaps_.empty() && gaps_.front().First <= kPast + 2) {
      gap.Count = gaps_.front().First + gaps_.front().Count - gap.First;
      gaps_.erase(gaps_.begin());
    }
    if (gap.Count <= ArModel::kLongestGap) {
      model_.Fill(repaired_.data(), gap.First, gap.Count, length_);
    }
  }
  for (Gap& gap : gaps_) {
    const auto first = static_cast<std::ptrdiff_t>(gap.First);
    const auto damaged = heard_.begin() + first;
    std::copy_n(damaged, gap.Count, repaired_.begin() + first);
    const float left = model_.Fill(repaired_.data(), gap.First, gap.Count, length_);
    if (left > kTrace && gap.First + gap.Count + kBlind <= length_) {
      std::copy_n(damaged, gap.Count, repaired_.begin() + first);
      gap.Count = 0;
    }
  }
}

// From what the last piece foretold over to the sound of this one.
void ClickFilter::GoOn(float* sound, std::size_t count) {
  std::copy(given_.begin(), given_.end(), bridge_.begin());
  model_.Fill(bridge_.data(), ArModel::kOrder, kFade, bridge_.size());
  const std::size_t fade = std::min(kFade, count);
  for (std::size_t i = 0; i < fade; ++i) {
    const float share = static_cast<float>(i + 1) / static_cast<float>(fade + 1);
    const float old = bridge_[ArModel::kOrder + i];
    sound[i] = old + share * (sound[i] - old);
  }
}

void ClickFilter::Keep(const float* sound, std::size_t count) {
  const bool open = !gaps_.empty() && gaps_.back().Count > 0 &&
                    gaps_.back().First + gaps_.back().Count == length_;
  open_ = open ? gaps_.back().Count : 0;
  std::copy_n(repaired_.begin() + static_cast<std::ptrdiff_t>(count), kPast, heard_.begin());
  const std::size_t fresh = std::min(count, given_.size());
  std::copy(given_.begin() + static_cast<std::ptrdiff_t>(fresh), given_.end(), given_.begin());
  std::copy_n(sound + (count - fresh), fresh, given_.end() - static_cast<std::ptrdiff_t>(fresh));
}

}  // namespace vantora
