#include "backends/sound/restoration/noise_floor.h"

#include "backends/sound/restoration/ranked.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace vantora {

namespace {

constexpr float kQuantile = 0.3F;
constexpr float kMeanOfQuantile = 2.8F;  // of noise, whose power is distributed exponentially
constexpr float kMinimumOfBin = 5.6F;    // what the least of a bin alone would lie under its mean
constexpr float kSmoothing = 0.03F;      // seconds
constexpr float kSettled = 0.15F;        // seconds after which a minimum can be believed
constexpr float kPeriod = 1.2F;          // seconds; the minimum reaches back over all periods
constexpr float kLeastPower = 0.02F;     // less than the rounding to 16 bit makes: digital silence
constexpr std::size_t kNarrowest = 16;   // bins
constexpr float kWatch = 0.3F;           // seconds for which a hiss is steady
constexpr float kSteady = 10;            // the range of a single bin; less in wider bands
constexpr float kMostSpread = 1.6F;      // of the mean to that of noise with the same quantile
constexpr float kLoose = 1.5F;           // of the steepness of a hiss that was heard alone
constexpr float kNearlyAll = 0.8F;       // of the bands

}  // namespace

// Bands grow wider upwards, where music is sparse and the ear coarse.
NoiseFloor::NoiseFloor(std::size_t bins) : bits_(bins + kRankedLanes), power_(bins) {
  std::size_t first = 1;
  while (first < bins) {
    const std::size_t width = std::max(kNarrowest, first / 8);
    const bool last = first + width + kNarrowest > bins;
    bands_.push_back({first, last ? bins - first : width});
    first += bands_.back().Count;
  }
}

void NoiseFloor::Hear(const float* power, float seconds) {
  const bool first = heard_ == 0;
  const float keep = first ? 0 : std::exp(-seconds / std::min(kSmoothing, heard_));
  heard_ += seconds;
  const bool settled = heard_ > kSettled;
  inPeriod_ += seconds;
  const bool next = settled && inPeriod_ > kPeriod;
  if (next) {
    period_ = (period_ + 1) % kPeriods;
    inPeriod_ = 0;
  }
  for (Band& band : bands_) {
    band.Smooth += (1 - keep) * (Quantile(band, power) - band.Smooth);
    if (!settled) {
      band.Least.fill(band.Smooth);
    } else {
      float& least = band.Least[period_];
      least = next ? band.Smooth : std::min(least, band.Smooth);
    }
    Watch(band, power);
    const float mean = 1 + kMinimumOfBin / std::sqrt(static_cast<float>(band.Count));
    band.Level = mean * *std::min_element(band.Least.begin(), band.Least.end());
  }
  ++looks_;
  watched_ += seconds;
  if (watched_ > kWatch) TakeOver();
  Spread();
}

void NoiseFloor::Watch(Band& band, const float* power) {
  const bool first = looks_ == 0;
  float sum = 0;
  for (std::size_t i = band.First; i < band.First + band.Count; ++i) sum += power[i];
  band.Low = first ? band.Smooth : std::min(band.Low, band.Smooth);
  band.High = first ? band.Smooth : std::max(band.High, band.Smooth);
  band.Sum = (first ? 0 : band.Sum) + band.Smooth;
  band.Spread = (first ? 0 : band.Spread) + sum / static_cast<float>(band.Count);
}

// Ends a look at steadiness.
void NoiseFloor::TakeOver() {
  const auto isSteady = [](const Band& band) {
    const float most = 1 + kSteady / std::sqrt(static_cast<float>(band.Count));
    return band.High < most * band.Low && band.Spread < kMostSpread * band.Sum;
  };
  const auto steady = std::count_if(bands_.begin(), bands_.end(), isSteady);
  const bool hiss = static_cast<float>(steady) >= kNearlyAll * static_cast<float>(bands_.size());
  for (Band& band : bands_) {
    if (!hiss) break;
    const float mean = 1 + kMinimumOfBin / std::sqrt(static_cast<float>(band.Count));
    band.Level = band.Sum / static_cast<float>(looks_);
    band.Least.fill(band.Level / mean);
  }
  for (std::size_t i = 0; hiss && i + 1 < bands_.size(); ++i) {
    Band& band = bands_[i];
    band.Steepest = isSteady(band) ? kLoose * band.Level / bands_[i + 1].Level : 0;
  }
  looks_ = 0;
  watched_ = 0;
}

float NoiseFloor::Quantile(const Band& band, const float* power) {
  for (std::size_t i = 0; i < band.Count; ++i) {
    bits_[i] = std::bit_cast<std::int32_t>(power[band.First + i]);
  }
  const auto place = static_cast<std::size_t>(kQuantile * static_cast<float>(band.Count));
  return std::max(kMeanOfQuantile * Ranked(bits_.data(), band.Count, place), kLeastPower);
}

// From the bands to the bins. Where the low harmonics of music leave no gap, the bands above tell
// how strong hiss can be: it does not rise downwards by more than 3 dB an octave, unless it was
// heard to do so where nothing else sounded. That of records does, and that of radio and tapes has
// an end.
void NoiseFloor::Spread() {
  const auto middle = [](const Band& band) {
    return static_cast<float>(band.First) + 0.5F * static_cast<float>(band.Count);
  };
  for (std::size_t i = bands_.size() - 1; i-- > 0;) {
    const float usual = middle(bands_[i + 1]) / middle(bands_[i]);
    const float steepest = std::max(usual, bands_[i].Steepest);
    bands_[i].Level = std::min(bands_[i].Level, steepest * bands_[i + 1].Level);
  }
  std::size_t bin = 0;
  for (std::size_t upper = 0; upper <= bands_.size(); ++upper) {
    const Band& above = bands_[std::min(upper, bands_.size() - 1)];
    const Band& below = bands_[upper > 0 ? upper - 1 : 0];
    const float from = middle(below), wide = middle(above) - from;
    const float slope = wide > 0 ? (above.Level - below.Level) / wide : 0;
    const std::size_t end =
        upper < bands_.size() ? static_cast<std::size_t>(std::ceil(middle(above))) : power_.size();
    for (; bin < end; ++bin) {
      power_[bin] = below.Level + slope * (static_cast<float>(bin) - from);
    }
  }
}

}  // namespace vantora
