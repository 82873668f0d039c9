#include "backends/sound/restoration/click_filter.h"

#include "backends/sound/restoration/ranked.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numeric>

namespace vantora {

namespace {

constexpr float kMedianOfNormal = 0.6745F;  // of the magnitudes, in standard deviations
constexpr float kLeastError = 0.5F;         // what counts as usual in silence, in 16-bit units
constexpr float kEdgeOfDamage = 0.45F;      // of the limit: where damage that was found ends
constexpr float kTrace = 0.24F;     // of the error's energy, which music leaves and damage does not
constexpr std::size_t kShort = 24;  // longer gaps could take on any shape, and must fit better
constexpr float kLongTrace = 0.1F;
constexpr std::size_t kAround = 300;  // samples on each side to which a gap is compared
constexpr std::size_t kNear = 24;     // samples between gaps that belong together
// Damage is added to what was there, so its error goes on behind it as far as the model reaches. A
// pulse drives what follows, so the error ends with it. The error that a replacement may leave at
// most, in parts of the one behind the gap; and that of the short model, before the long one is
// asked.
constexpr double kPulse = 0.75, kLongPulse = 1.5;
constexpr double kLeastTail = 6;  // by which it must be less at least, in usual energies
// What a replacement takes off the error at least, in energies of the limit: alone, where pulses
// were heard, and for each further sample. For the long model see Measure; the last is a part of
// that for each sample beyond a few.
constexpr double kSure = 1.5, kSureOfPulse = 12, kSureOfEach = 0.6, kLongSureOfEach = 0.2;
constexpr std::size_t kFew = 3;
// What it leaves, in usual energies of as many errors: chance, damage beside it, and too much.
constexpr double kChance = 1.6, kLongChance = 1.3, kMostLeft = 26;
constexpr double kLittle = 0.03;  // of the error, whatever else is in it
// The least share of what a replacement takes off that must lie within the gap, for each sample
// beyond a few. With less, the damage is behind the gap.
constexpr double kElsewhere = 0.001;
// What a sample at an end of a gap must take off, in usual energies; by the long model.
constexpr double kNeeded = 5, kLongNeeded = 20;
constexpr std::size_t kHidesEnd = 13;  // samples from which on damage may have a soft end
constexpr double kWorth = 3;
constexpr int kWideRounds = 2;
constexpr int kRounds = 3;  // of repair on trial
constexpr int kLongRounds = 2;
constexpr std::size_t kOrder = 400;   // of the long model: a period of 110 Hz
constexpr std::size_t kHarmonic = 4;  // errors that come back, of which the long model is asked
constexpr std::size_t kEdge = 3;      // samples within the edge of a period
constexpr float kAgain = 0.6F;        // of an error: as great it must come back

std::size_t OrderOf(ClickFilter::Damage damage) {
  return damage == ClickFilter::Damage::kClicks ? std::size_t{48} : std::size_t{32};
}

std::size_t MarginOf(ClickFilter::Damage damage) {  // samples that are seen, but not decided yet
  return damage == ClickFilter::Damage::kClicks ? 384 : 128;
}

// The median of the magnitudes of at most kMost numbers.
constexpr std::size_t kMost = 128;
float Median(const float* numbers, std::size_t count) {
  std::array<std::int32_t, kMost + kRankedLanes> bits{};
  for (std::size_t i = 0; i < count; ++i) {
    bits[i] = std::bit_cast<std::int32_t>(std::abs(numbers[i]));
  }
  return Ranked(bits.data(), count, count / 2);
}

}  // namespace

ClickFilter::ClickFilter(Damage damage)
    : damage_(damage),
      model_(OrderOf(damage), kLongest),
      long_(kOrder, kLongest),
      raw_(2 * kBlock),
      heard_(kLongest),
      repaired_(kLongest),
      forward_(kLongest),
      error_(kLongest),
      limit_(kLongest),
      up_(kLongest),
      down_(kLongest) {
  gaps_.reserve(kLongest);
  before_.reserve(kLongest);
}

std::size_t ClickFilter::Process(float level, float* sound, std::size_t count, float* follows,
                                 std::size_t following) {
  Take(sound, count, follows, following);
  const std::size_t margin = std::min(MarginOf(damage_), following);
  begin_ = kPast + done_;
  end_ = std::max(kPast + count + following - margin, begin_);
  base_ = begin_ - kPast;
  length_ = kPast + count + following;
  measure_ = MeasureOf(level);
  // A whole sound that is as short as damage can be is no damage.
  const bool brief = past_ == 0 && following == 0 && count <= ArModel::kLongestGap;
  if (level > 0 && end_ > begin_ && !brief) Work();
  past_ = std::min(past_ + count, kPast);
  std::copy_n(repaired_.begin() + kPast, count, sound);
  const std::size_t final = end_ - kPast - count;
  std::copy_n(repaired_.begin() + static_cast<std::ptrdiff_t>(kPast + count), final, follows);
  done_ = final;
  known_ = following;
  const auto shift = static_cast<std::ptrdiff_t>(count);
  std::copy(repaired_.begin() + shift, repaired_.begin() + static_cast<std::ptrdiff_t>(end_),
            repaired_.begin());
  return final;
}

// What was decided about samples holds as long as they come as they were announced.
void ClickFilter::Take(const float* sound, std::size_t count, const float* follows,
                       std::size_t following) {
  const auto comes = [&](std::size_t most) {
    return std::equal(sound, sound + std::min({count, known_, most}), raw_.begin());
  };
  if (done_ > count + following || !comes(done_)) done_ = 0;
  if (!comes(count)) past_ = 0;  // another place of the sound, or other sound
  std::copy_n(repaired_.begin(), kPast + done_, heard_.begin());
  const auto behind = raw_.begin() + static_cast<std::ptrdiff_t>(count);
  std::copy_n(sound, count, raw_.begin());
  std::copy_n(follows, following, behind);
  const auto done = static_cast<std::ptrdiff_t>(done_);
  std::copy(raw_.begin() + done, behind + static_cast<std::ptrdiff_t>(following),
            heard_.begin() + kPast + done);
  std::copy_n(heard_.begin(), kPast + count + following, repaired_.begin());
  std::copy_n(raw_.begin() + static_cast<std::ptrdiff_t>(count), following, raw_.begin());
}

ClickFilter::Measure ClickFilter::MeasureOf(float level) const {
  const float s = std::clamp(level, 0.0F, 1.0F), mild = (1 - s) * (1 - s);
  if (damage_ == Damage::kClicks) {
    return {3.5F + 2 * mild, 150 + static_cast<std::size_t>(50 * s), 12, 1, 400, 6};
  }
  return {3 + 3 * mild, 8 + static_cast<std::size_t>(16 * s), 2, 4, 50, kSureOfEach};
}

void ClickFilter::Work() {
  const std::size_t total = length_ - base_;
  model_.Fit(heard_.data() + base_, total);
  MeasureStretches(model_);
  Search(model_);
  for (int round = 0; round < kRounds && !gaps_.empty(); ++round) {
    FillAll(model_);
    model_.Fit(repaired_.data() + base_, total);
    MeasureStretches(model_);
    HearGaps();
    before_ = gaps_;
    Search(model_);
    const bool same = gaps_.size() == before_.size() &&
                      std::equal(gaps_.begin(), gaps_.end(), before_.begin(), [](auto& a, auto& b) {
                        return a.First == b.First && a.Count == b.Count;
                      });
    if (same) break;
  }
  sincePulse_ = spared_ > 0 ? 0 : std::min(sincePulse_ + 1, kRecently);
  // A long gap leaves the model little to go by, so its replacement is looked at again.
  const bool wide =
      std::any_of(gaps_.begin(), gaps_.end(), [](const Gap& gap) { return gap.Count > kShort; });
  for (int round = 0; wide && round < kWideRounds; ++round) {
    FillAll(model_);
    model_.Fit(repaired_.data() + base_, total);
  }
  if (spared_ >= kHarmonic)
    WorkOnHarmonics();
  else
    Repair(model_);
}

// From the errors of the repaired piece to those of the piece as it came.
void ClickFilter::HearGaps() {
  std::array<float, ArModel::kLongestGap> difference{};
  for (const Gap& gap : gaps_) {
    for (std::size_t i = 0; i < gap.Count; ++i) {
      difference[i] = heard_[gap.First + i] - repaired_[gap.First + i];
    }
    model_.Add(difference.data(), gap.First - base_, gap.Count, length_ - base_);
  }
}

// Damage in the middle of a period's edge hides it, and a short model would smooth the edge away
// with the damage. A long one knows the edge from the periods around.
void ClickFilter::WorkOnHarmonics() {
  const std::size_t total = length_ - base_;
  shortLimit_ = stretchLimit_;
  FillAll(model_);
  for (int round = 0; round < kLongRounds; ++round) {
    long_.Fit(repaired_.data() + base_, total);
    if (!gaps_.empty()) {
      FillAll(long_);
      long_.Fit(repaired_.data() + base_, total);
    }
    MeasureStretches(long_);
    before_ = gaps_;
    Search(long_);
    Unite();
    if (gaps_.empty()) break;  // a further round would find the same
    FillAll(long_);
  }
  Repair(long_);
}

// The gaps that were found now and before.
void ClickFilter::Unite() {
  gaps_.insert(gaps_.end(), before_.begin(), before_.end());
  std::sort(gaps_.begin(), gaps_.end(),
            [](const Gap& a, const Gap& b) { return a.First < b.First; });
  std::size_t last = 0;
  for (std::size_t i = 1; i < gaps_.size(); ++i) {
    if (gaps_[i].First <= gaps_[last].End() + 1) {
      gaps_[last].Count = std::max(gaps_[last].End(), gaps_[i].End()) - gaps_[last].First;
    } else {
      gaps_[++last] = gaps_[i];
    }
  }
  if (!gaps_.empty()) gaps_.resize(last + 1);
  std::erase_if(gaps_, [](const Gap& gap) { return gap.Count > ArModel::kLongestGap; });
}

// The long model reaches from gap to gap, so it starts from what was filled in before.
void ClickFilter::FillAll(ArModel& model) {
  const auto base = static_cast<std::ptrdiff_t>(base_),
             length = static_cast<std::ptrdiff_t>(length_);
  if (&model == &model_) {
    std::copy(heard_.begin() + base, heard_.begin() + length, repaired_.begin() + base);
  }
  for (const Gap& gap : gaps_) {
    model.Fill(repaired_.data() + base_, gap.First - base_, gap.Count, length_ - base_);
  }
}

// The limit over which a sample is suspected, for each stretch: by the middle one of the three
// medians before it and of the three behind it, so that damage of a stretch's length counts
// nowhere, and of these the greater one, so that a sound that begins is not taken for damage. In a
// sound that dies away the stretch itself counts, and what lies in the middle between the two.
void ClickFilter::MeasureStretches(const ArModel& model) {
  const float* const forward = model.Forward();
  const std::size_t total = length_ - base_;
  std::size_t count = 0;
  for (; count * kStretch < total; ++count) {
    const std::size_t from = total < kStretch ? 0 : std::min(count * kStretch, total - kStretch);
    const std::size_t size = std::min(kStretch, total);
    usual_[count] = std::max(Median(forward + from, size) / kMedianOfNormal, kLeastError);
  }
  const auto middle = [](float a, float b, float c) {
    return std::max(std::min(a, b), std::min(std::max(a, b), c));
  };
  for (std::size_t i = 0; i < count; ++i) {
    const auto at = [&](std::ptrdiff_t place) {
      return usual_[static_cast<std::size_t>(
          std::clamp<std::ptrdiff_t>(place, 0, static_cast<std::ptrdiff_t>(count) - 1))];
    };
    const auto here = static_cast<std::ptrdiff_t>(i);
    const float past = middle(at(here - 3), at(here - 2), at(here - 1));
    const float next = i + 1 < count ? middle(at(here + 1), at(here + 2), at(here + 3)) : 0;
    float error = std::max(past, next);
    if (past > next) error = std::min(past, std::max(usual_[i], std::sqrt(past * next)));
    stretchLimit_[i] = measure_.Times * error;
  }
}

void ClickFilter::Search(ArModel& model) {
  const std::size_t total = length_ - base_, before = past_ + begin_ - kPast;
  const std::size_t first = begin_ - base_ + model.Order() - std::min(model.Order(), before);
  const std::size_t last = std::max(base_, length_ - std::min(length_, model_.Order())) - base_;
  std::copy_n(model.Forward(), total, forward_.begin());
  const float* const backward = model.Backward();
  for (std::size_t i = 0; i < total; ++i) {
    error_[i] = std::min(std::abs(forward_[i]), std::abs(backward[i]));
    limit_[i] = stretchLimit_[i / kStretch];
  }
  AddMatches(model);
  if (&model == &model_) SparePeriods();
  gaps_.clear();
  std::size_t from = first;                   // where a gap may begin
  std::size_t cluster = 0, clusterTotal = 0;  // first gap and samples of those that lie together
  const auto closeCluster = [&] {
    if (clusterTotal > measure_.Longest * measure_.Together) gaps_.resize(cluster);
    cluster = gaps_.size();
    clusterTotal = 0;
  };
  for (std::size_t i = first; i < last; ++i) {
    if (error_[i] <= limit_[i]) continue;
    if (i >= from + kNear) closeCluster();
    Gap gap{i, 1};
    Extend(gap, from, measure_.Bridge);
    from = gap.End();
    i = from - 1;
    const bool narrowed = gap.Count > measure_.Longest && Narrow(gap, model);
    clusterTotal += gap.Count;
    if (gap.Count > measure_.Longest && !narrowed) continue;
    gap.First += base_;
    gaps_.push_back(gap);
  }
  closeCluster();
}

// Damage whose single errors lie below the limit shows in what all of them say together. The match
// of great damage has hills beside it, so only the highest place within the model's reach counts.
void ClickFilter::AddMatches(ArModel& model) {
  const std::size_t total = length_ - base_, reach = model_.Order();
  model.Match(total);
  const float* const matched = model.Matched();
  for (std::size_t i = 0; i < total; ++i) {
    const float match = std::abs(matched[i]);
    if (match <= limit_[i] || match <= error_[i]) continue;
    bool highest = true;
    const std::size_t end = std::min(i + reach + 1, total);
    for (std::size_t j = i - std::min(i, reach); j < end && highest; ++j) {
      highest = std::abs(matched[j]) <= match;
    }
    if (highest) error_[i] = match;
  }
}

// Crackle beside the edge of a period looks longer than crackle is. Its own place is where the
// match is highest.
bool ClickFilter::Narrow(Gap& gap, const ArModel& model) const {
  if (damage_ != Damage::kCrackle) return false;
  constexpr std::size_t kBeside = 2;
  const auto match = [&](std::size_t i) { return std::abs(model.Matched()[i]); };
  std::size_t peak = gap.First;
  for (std::size_t i = gap.First; i < gap.End(); ++i) {
    if (match(i) > match(peak)) peak = i;
  }
  if (match(peak) <= limit_[peak]) return false;
  const std::size_t end = std::min(gap.End(), peak + kBeside + 1);
  gap.First = std::max(gap.First, peak - std::min(peak, kBeside));
  gap.Count = end - gap.First;
  return true;
}

// Damage goes on as long as the limit is exceeded again soon, and a little farther, as long as the
// error is great.
void ClickFilter::Extend(Gap& gap, std::size_t from, std::size_t bridge) const {
  const std::size_t total = length_ - base_;
  std::size_t end = gap.First + 1;
  for (std::size_t i = end; i < total && i < end + bridge; ++i) {
    if (error_[i] > limit_[i]) end = i + 1;
  }
  const std::size_t narrow = std::min<std::size_t>(bridge, 4);
  for (std::size_t i = end; i < total && i < end + narrow; ++i) {
    if (error_[i] > kEdgeOfDamage * limit_[i]) end = i + 1;
  }
  for (std::size_t i = gap.First; i > from && i + narrow > gap.First; --i) {
    if (error_[i - 1] > kEdgeOfDamage * limit_[i - 1]) gap.First = i - 1;
  }
  gap.Count = end - gap.First;
}

// Raises the limit where an error comes back at equal distances.
void ClickFilter::SparePeriods() {
  const std::size_t total = length_ - base_, first = begin_ - base_;
  constexpr std::size_t kNextTo = 2;
  std::size_t over = 0;
  for (std::size_t i = first; i < total; ++i) over += error_[i] > limit_[i];
  spared_ = 0;
  if (over == 0) return;
  for (std::size_t i = 0; i < total; ++i) {
    float up = 0, down = 0;
    for (std::size_t j = i - std::min(i, kNextTo); j <= std::min(i + kNextTo, total - 1); ++j) {
      const float error = forward_[j] > 0 ? error_[j] : -error_[j];
      up = std::max(up, error);
      down = std::max(down, -error);
    }
    up_[i] = up;
    down_[i] = down;
  }
  constexpr float kNever = 1e9F;
  for (std::size_t i = first; i < total; ++i) {
    if (error_[i] <= limit_[i]) continue;
    std::size_t end = i + 1, peak = i;
    for (std::size_t j = i; j < std::min(end + kEdge, total); ++j) {
      if (error_[j] <= limit_[j]) continue;
      end = j + 1;
      if (error_[j] > error_[peak]) peak = j;
    }
    if (ComesBack(peak)) {
      ++spared_;
      for (std::size_t j = i - std::min(i, kEdge); j < std::min(end + kEdge, total); ++j)
        limit_[j] = kNever;
    }
    i = end - 1;
  }
}

bool ClickFilter::ComesBack(std::size_t place) const {
  const std::size_t total = length_ - base_;
  const std::vector<float>& same = forward_[place] > 0 ? up_ : down_;
  const float least = kAgain * error_[place];
  for (std::size_t period = kLeastPeriod; period <= kMostPeriod; ++period) {
    std::size_t seen = 0, all = 0, side = 0;
    for (const int way : {-1, 1}) {
      std::size_t here = 0;
      for (std::size_t k = 1; k <= 3; ++k) {
        const std::size_t far = k * period;
        if (way < 0 ? far + 2 > place : place + far + 2 >= total) break;
        const float* const at = same.data() + (way < 0 ? place - far : place + far);
        ++all;
        here += *at >= least || (k > 1 && std::max(at[-2], at[2]) >= least);
      }
      seen += here;
      side = std::max(side, here);
    }
    if (seen >= 4 || side == 3 || (all <= 4 && all >= 2 && seen >= std::min<std::size_t>(all, 3)))
      return true;
  }
  return false;
}

void ClickFilter::Repair(ArModel& model) {
  if (&model == &model_) FillAll(model);
  std::copy_n(heard_.begin() + static_cast<std::ptrdiff_t>(base_), begin_ - base_,
              repaired_.begin() + static_cast<std::ptrdiff_t>(base_));
  // Gaps behind `end_` are filled as well, so that they don't spoil the errors of those before
  // them.
  std::size_t replaced = 0;
  for (Gap gap : gaps_) {
    if (gap.First >= replaced && gap.First < end_ && Replaced(model, gap)) replaced = gap.End();
  }
  end_ = std::max(end_, replaced);
}

void ClickFilter::Damaged(const Gap& gap) {
  const auto first = static_cast<std::ptrdiff_t>(gap.First);
  std::copy_n(heard_.begin() + first, gap.Count, repaired_.begin() + first);
}

// Fills a gap that is damaged so far.
ClickFilter::Errors ClickFilter::Filled(ArModel& model, const Gap& gap) {
  Damaged(gap);
  const double left =
      double{model.Fill(repaired_.data() + base_, gap.First - base_, gap.Count, length_ - base_)};
  const std::size_t stretch = (gap.First - base_) / kStretch;
  const bool other = &model == &model_ && &model != working_;
  const double limit = double{other ? shortLimit_[stretch] : stretchLimit_[stretch]};
  const double usual = limit / double{measure_.Times};
  return {model.Before(), left * model.Before(), model.Behind(), limit * limit, usual * usual};
}

// Replaces a gap if the errors speak for damage that was added to the music.
bool ClickFilter::Replaced(ArModel& model, Gap& gap) {
  working_ = &model;
  const bool brief = &model == &model_;
  const bool pulses = sincePulse_ < kRecently;
  const Gap whole = gap;
  if (brief && !pulses && damage_ == Damage::kClicks) FindEnd(gap);
  Trim(model, gap);
  bool replaced = gap.Count <= measure_.Longest;
  if (replaced && !brief) {
    const Errors errors = Filled(model_, gap);
    replaced = Drives(errors, model_, kLongPulse);
  }
  if (replaced) {
    const Errors errors = Filled(model, gap);
    replaced = Fits(errors, model, gap) && Plausible(gap) && Loud(gap) &&
               (!pulses || (Drives(errors, model, kPulse) &&
                            errors.Behind - errors.Left >= kLeastTail * errors.Usual));
  }
  if (!replaced) Damaged(gap);
  for (std::size_t i = whole.First; i < whole.End(); ++i) {
    if (i < gap.First || i >= gap.End()) repaired_[i] = heard_[i];
  }
  return replaced;
}

// Damage takes most of the error along, or all but chance, and more than chance can make.
bool ClickFilter::Fits(const Errors& errors, const ArModel& model, const Gap& gap) const {
  const bool brief = &model == &model_, pulses = sincePulse_ < kRecently;
  const double chance = errors.Usual * static_cast<double>(gap.Count + model.Order());
  const double trace = double{brief && gap.Count > kShort ? kLongTrace : kTrace};
  const bool explained =
      errors.Left <= kLittle * errors.Before ||
      (errors.Left <= trace * errors.Before && errors.Left <= kMostLeft * chance) ||
      (gap.Count <= kShort && errors.Left <= (brief ? kChance : kLongChance) * chance);
  const double beyond = static_cast<double>(gap.Count - std::min(gap.Count, kFew));
  const double sure =
      !brief ? measure_.LongSure * (1 + std::min(kLongSureOfEach * beyond, 4.0))
             : (pulses ? kSureOfPulse : kSure) +
                   (pulses ? measure_.PulseSure : kSureOfEach) * static_cast<double>(gap.Count - 1);
  const double taken = errors.Before - errors.Left;
  const bool here = errors.Behind - errors.Left <= (1 - kElsewhere * beyond) * taken;
  return explained && here && taken >= sure * errors.Limit;
}

// Whether the error goes on behind the gap as that of damage does. The usual errors of the music
// are there in any case.
bool ClickFilter::Drives(const Errors& errors, const ArModel& model, double share) {
  const double usual = errors.Usual * static_cast<double>(model.Order());
  return errors.Left <= share * errors.Behind + std::abs(1 - share) * usual;
}

// Takes samples off the ends of a short gap that the errors can do without.
void ClickFilter::Trim(ArModel& model, Gap& gap) {
  if (gap.Count > kShort) return;
  Damaged(gap);
  const double limit = double{stretchLimit_[(gap.First - base_) / kStretch] / measure_.Times};
  const auto look = [&](std::size_t first, std::size_t count) {
    model.Look(repaired_.data() + base_, first - base_, count, length_ - base_);
    return std::accumulate(model.Taken(), model.Taken() + count, 0.0);
  };
  double taken = look(gap.First, gap.Count);
  const double needed = (&model == &model_ ? kNeeded : kLongNeeded) * limit * limit;
  while (gap.Count > 1 && model.Taken()[gap.Count - 1] < needed) {
    taken -= model.Taken()[--gap.Count];
  }
  while (gap.Count > 1) {
    const double rest = look(gap.First + 1, gap.Count - 1);
    if (taken - rest >= needed) break;
    taken = rest;
    ++gap.First;
    --gap.Count;
  }
}

// Loud damage hides its own soft end. Where the error stays great behind a replacement, the gap is
// made longer as long as that lowers the errors by more than `kWorth` usual ones a sample.
void ClickFilter::FindEnd(Gap& gap) {
  const std::size_t first = gap.First - base_, total = length_ - base_, order = model_.Order();
  const std::size_t longest =
      std::min({measure_.Longest, ArModel::kLongestGap, total - std::min(total, first + order)});
  if (gap.Count < kHidesEnd || gap.Count >= longest) return;
  std::array<float, ArModel::kLongestGap> filled{};  // other gaps that lie behind this one
  const auto place = repaired_.begin() + static_cast<std::ptrdiff_t>(gap.First);
  std::copy_n(place, longest, filled.begin());
  Damaged({gap.First, longest});
  const double usual = double{stretchLimit_[first / kStretch] / measure_.Times};
  model_.Look(repaired_.data() + base_, first, longest, total);
  double worth = 0, most = 0;
  std::size_t best = gap.Count;
  for (std::size_t i = gap.Count; i < longest; ++i) {
    worth += model_.Taken()[i] - kWorth * usual * usual;
    if (worth <= most) continue;
    most = worth;
    best = i + 1;
  }
  gap.Count = best;
  std::copy(filled.begin() + static_cast<std::ptrdiff_t>(best),
            filled.begin() + static_cast<std::ptrdiff_t>(longest),
            place + static_cast<std::ptrdiff_t>(best));
}

// Where the model hardly holds, an interpolation may swing up.
bool ClickFilter::Plausible(const Gap& gap) const {
  constexpr float kRise = 1.2F, kRiseOfLoud = 2, kSwing = 20;
  float inside = 0, outside = 0, damaged = 0, power = 0, powerHeard = 0, powerAround = 0;
  for (std::size_t i = gap.First; i < gap.End(); ++i) {
    inside = std::max(inside, std::abs(repaired_[i]));
    damaged = std::max(damaged, std::abs(heard_[i]));
    power += repaired_[i] * repaired_[i];
    powerHeard += heard_[i] * heard_[i];
  }
  const std::size_t from = std::max(base_, gap.First - std::min(gap.First, kAround));
  const std::size_t to = std::min(gap.End() + kAround, length_);
  for (std::size_t i = from; i < to; ++i) {
    if (i >= gap.First && i < gap.End()) continue;
    outside = std::max(outside, std::abs(repaired_[i]));
    powerAround += repaired_[i] * repaired_[i];
  }
  // Damage makes the music louder, as a rule, so its replacement is not far louder than both.
  const float share = static_cast<float>(gap.Count) / static_cast<float>(to - from - gap.Count);
  if (power > powerHeard && power > kSwing * share * powerAround) return false;
  // Where the damage is far louder than the replacement, that may rise a little more.
  return inside <= kRise * outside || (inside <= kRiseOfLoud * outside && inside <= 0.6F * damaged);
}

// Long damage must stand out of the music around it.
bool ClickFilter::Loud(const Gap& gap) const {
  if (gap.Count <= kShort) return true;
  constexpr float kShare = 1;
  float damage = 0;
  for (std::size_t i = gap.First; i < gap.End(); ++i) {
    damage += (heard_[i] - repaired_[i]) * (heard_[i] - repaired_[i]);
  }
  // The louder side counts: an attack is short before a sound, and soft beside it.
  float before = 0, behind = 0;
  const std::size_t from = std::max(base_, gap.First - std::min(gap.First, kAround));
  const std::size_t to = std::min(gap.End() + kAround, length_);
  for (std::size_t i = from; i < gap.First; ++i) before += repaired_[i] * repaired_[i];
  for (std::size_t i = gap.End(); i < to; ++i) behind += repaired_[i] * repaired_[i];
  const float music = std::max(before, behind) / static_cast<float>(kAround);
  return damage > kShare * kShare * music * static_cast<float>(gap.Count);
}

}  // namespace vantora
