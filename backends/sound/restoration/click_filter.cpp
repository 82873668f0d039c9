#include "backends/sound/restoration/click_filter.h"

#include <algorithm>
#include <cmath>

namespace vantora {

namespace {

constexpr float kMedianOfNormal = 0.6745F;  // of the magnitudes, in standard deviations
constexpr float kLeastError = 0.5F;         // what counts as usual in silence, in 16-bit units
constexpr float kEdgeOfDamage = 0.4F;       // of the limit: where damage that was found ends
constexpr float kTrace = 0.3F;      // of the error's energy, which music leaves and damage not
constexpr std::size_t kShort = 24;  // longer gaps could take on any shape, and must fit better
constexpr float kLongTrace = 0.1F;
constexpr float kSwellTrace = 0.15F;
constexpr std::size_t kBlind = 12;  // samples behind a gap that it takes to tell the two
constexpr std::size_t kLongestBlind = 16;
constexpr float kBlindTimes = 1.5F;  // the limit where there are fewer
constexpr std::size_t kNear = 24;    // samples between gaps that belong together
constexpr int kSwellTries = 4;       // in a piece

std::size_t OrderOf(ClickFilter::Damage damage) {
  return damage == ClickFilter::Damage::kClicks ? 64 : 32;
}

}  // namespace

ClickFilter::ClickFilter(Damage damage)
    : damage_(damage),
      model_(OrderOf(damage), kPast + kBlock),
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
  if (level > 0) {
    const Measure measure = MeasureOf(level);
    model_.Fit(heard_.data(), length_);
    Search(measure);
    for (int round = 0; round < kRounds && !gaps_.empty(); ++round) {
      std::copy_n(heard_.begin(), length_, repaired_.begin());
      for (const Gap& gap : gaps_) model_.Fill(repaired_.data(), gap.First, gap.Count, length_);
      model_.Fit(repaired_.data(), length_);
      model_.Filter(heard_.data(), length_);
      Search(measure);
    }
    CloseOpenGap(measure);
    Repair();
    if (damage_ == Damage::kClicks) RepairSwells(measure);
  }
  std::copy_n(repaired_.begin() + kPast, count, sound);
  Keep(count);
}

ClickFilter::Measure ClickFilter::MeasureOf(float level) const {
  const float s = std::clamp(level, 0.0F, 1.0F), mild = (1 - s) * (1 - s);
  if (damage_ == Damage::kClicks) {
    const float times = 3.5F + 9 * mild;
    return {times, 0.3F * times, 16 + static_cast<std::size_t>(96 * s), 6, 1};
  }
  return {3 + 8 * mild, 0, 4 + static_cast<std::size_t>(16 * s), 2, 4};
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
  std::sort(peak.begin(), peak.begin() + static_cast<std::ptrdiff_t>(count));
  const float crest = measure.Crest * peak[(count - 1) / 2];
  for (std::size_t i = 0; i < count; ++i) {
    const float around =
        std::max({usual[i > 0 ? i - 1 : 0], usual[i], usual[std::min(i + 1, count - 1)]});
    limit_[i] = std::max(measure.Times * around, crest);
  }
  blindLimit_ = std::max(kBlindTimes * limit_[count - 1], kBlindTimes * peak[(count - 1) / 2]);
}

void ClickFilter::Search(const Measure& measure) {
  MeasureStretches(measure);
  gaps_.clear();
  std::size_t from = kPast;                   // where a gap may begin
  std::size_t cluster = 0, clusterTotal = 0;  // first gap and samples of those that lie together
  const auto closeCluster = [&] {
    if (clusterTotal > measure.Longest * measure.Together) gaps_.resize(cluster);
    cluster = gaps_.size();
    clusterTotal = 0;
  };
  for (std::size_t i = kPast; i < length_; ++i) {
    const bool blind = i + kBlind >= length_;
    if (error_[i] <= (blind ? blindLimit_ : limit_[i / kStretch])) continue;
    if (i >= from + kNear) closeCluster();
    Gap gap{i, 1};
    Extend(gap, from, measure.Bridge);
    from = gap.End();
    i = from - 1;
    clusterTotal += gap.Count;
    if (gap.Count <= (from + kBlind < length_ ? measure.Longest : kLongestBlind)) {
      gaps_.push_back(gap);
    }
  }
  closeCluster();
}

void ClickFilter::Extend(Gap& gap, std::size_t from, std::size_t bridge) const {
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

// What had to be foretold is known better now that its right side is there. It has been heard as it
// was, but what comes is measured against it.
void ClickFilter::CloseOpenGap(const Measure& measure) {
  if (open_ == 0) return;
  Gap gap{kPast - open_, open_};
  if (!gaps_.empty() && gaps_.front().First <= kPast + 2) {
    const std::size_t whole = gaps_.front().End() - gap.First;
    if (whole <= measure.Longest) {
      gap.Count = whole;
      gaps_.erase(gaps_.begin());
    }
  }
  model_.Fill(repaired_.data(), gap.First, gap.Count, length_);
}

void ClickFilter::Repair() {
  for (Gap& gap : gaps_) {
    if (!Replaced(gap, gap.Count > kShort ? kLongTrace : kTrace) && gap.End() + kBlind <= length_)
      gap.Count = 0;
  }
}

// Replaces a gap if that takes away all of the error but a share.
bool ClickFilter::Replaced(const Gap& gap, float most) {
  const auto damaged = heard_.begin() + static_cast<std::ptrdiff_t>(gap.First);
  const auto place = repaired_.begin() + static_cast<std::ptrdiff_t>(gap.First);
  std::copy_n(damaged, gap.Count, place);
  const float left = model_.Fill(repaired_.data(), gap.First, gap.Count, length_);
  if (left <= most || gap.End() + kBlind > length_) return true;
  std::copy_n(damaged, gap.Count, place);
  return false;
}

// Damage that swells smoothly, a thump or a jump of the level, errs only where it begins, seen from
// before, and where it ends, seen from behind.
void ClickFilter::RepairSwells(const Measure& measure) {
  if (!gaps_.empty()) model_.Filter(repaired_.data(), length_);
  const float* const forward = model_.Forward();
  const float* const backward = model_.Backward();
  int tries = 0;
  std::size_t restless = kPast - kNear;  // the last sample that was hard to foretell
  for (std::size_t i = restless; i + kBlind < length_ && tries < kSwellTries; ++i) {
    const float limit = limit_[i / kStretch];
    if (std::abs(forward[i]) <= limit) continue;
    const bool sudden = i >= restless + kNear;
    restless = i;
    if (!sudden || i < kPast) continue;
    const std::size_t latest = std::min(i + measure.Longest, length_ - kBlind);
    std::size_t end = i;
    bool found = false;
    for (std::size_t j = i; j < latest; ++j) {
      if (std::abs(backward[j]) > kEdgeOfDamage * limit) end = j + 1;
      found = found || std::abs(backward[j]) > limit;
    }
    if (!found) continue;
    ++tries;
    const Gap gap{i, end - i};
    std::copy_n(repaired_.begin() + static_cast<std::ptrdiff_t>(i), gap.Count,
                heard_.begin() + static_cast<std::ptrdiff_t>(i));
    if (Replaced(gap, kSwellTrace)) {
      model_.Fit(repaired_.data(), length_);
      Replaced(gap, kSwellTrace);
      model_.Filter(repaired_.data(), length_);
    }
    restless = i = end;
  }
}

void ClickFilter::Keep(std::size_t count) {
  const bool open = !gaps_.empty() && gaps_.back().Count > 0 && gaps_.back().End() == length_;
  open_ = open ? gaps_.back().Count : 0;
  std::copy_n(repaired_.begin() + static_cast<std::ptrdiff_t>(count), kPast, heard_.begin());
}

}  // namespace vantora
