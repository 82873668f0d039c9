#include "backends/sound/restoration/ar_model.h"

#include "backends/sound/edits/vector_unit.h"

#include <algorithm>
#include <cmath>

namespace vantora {

namespace {

constexpr double kMostReflection = 0.999999;  // with 1 the model would never forget
constexpr std::size_t kLanes = 16, kBlock = 32;

// Numbers that the vector unit takes side by side, wherever in memory they begin. The compiler
// makes poor code of the same loops written with arrays.
using Lanes [[gnu::vector_size(4 * kLanes), gnu::aligned(4), gnu::may_alias]] = float;

struct Sums {
  double Both = 0, Cross = 0;
};

// Of two errors of the next order.
double Reflection(const Sums& sums) {
  const double k = -2 * sums.Cross / std::max(sums.Both, 1e-6);
  return sums.Both > 1e-6 ? std::clamp(k, -kMostReflection, kMostReflection) : 0;
}

Sums PairSums(const float* forward, const float* backward, std::size_t count) {
  Sums sums;
  for (std::size_t i = 0; i < count; ++i) {
    const double f = double{forward[i]}, b = double{backward[i]};
    sums.Both += f * f + b * b;
    sums.Cross += f * b;
  }
  return sums;
}

// One stage of the lattice: both errors of the next order. `backward` belongs to the sample at
// which its prediction aims, so that nothing moves from stage to stage. Returns the sums of which
// the stage behind this one is made, whose pairs are one sample farther apart.
VANTORA_VECTOR_UNIT Sums Stage(float* __restrict forward, float* __restrict backward,
                               std::size_t count, float k) {
  Lanes both{}, cross{}, f{}, b{};
  std::size_t i = 0;
  for (; i + kLanes <= count; i += kLanes) {
    Lanes& here = *reinterpret_cast<Lanes*>(forward + i);
    Lanes& there = *reinterpret_cast<Lanes*>(backward + i);
    const Lanes oldF = here, oldB = there, newF = oldF + k * oldB, newB = oldB + k * oldF;
    here = newF, there = newB;
    const Lanes next =
        __builtin_shufflevector(f, newF, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16);
    if (i > 0) both += next * next + b * b, cross += next * b;
    f = newF, b = newB;
  }
  for (std::size_t j = i; j < count; ++j) {
    const float oldF = forward[j], oldB = backward[j];
    forward[j] = oldF + k * oldB;
    backward[j] = oldB + k * oldF;
  }
  const std::size_t rest = i - std::min(i, kLanes);
  Sums sums = PairSums(forward + rest + 1, backward + rest, count - rest - 1);
  for (std::size_t lane = 0; lane < kLanes; ++lane) {
    sums.Both += double{both[lane]};
    sums.Cross += double{cross[lane]};
  }
  return sums;
}

// out[i] = the sum of taps[k] * in[i + k]. Up to kBlock numbers behind `out` are written as well.
VANTORA_VECTOR_UNIT void Correlate(const double* __restrict taps, std::size_t tapCount,
                                   const double* __restrict in, double* __restrict out,
                                   std::size_t count) {
  using Eight [[gnu::vector_size(64), gnu::aligned(8), gnu::may_alias]] = double;
  for (std::size_t i = 0; i < count; i += kBlock) {
    Eight s0{}, s1{}, s2{}, s3{};
    for (std::size_t k = 0; k < tapCount; ++k) {
      const Eight* const from = reinterpret_cast<const Eight*>(in + i + k);
      s0 += taps[k] * from[0];
      s1 += taps[k] * from[1];
      s2 += taps[k] * from[2];
      s3 += taps[k] * from[3];
    }
    Eight* const to = reinterpret_cast<Eight*>(out + i);
    to[0] = s0, to[1] = s1, to[2] = s2, to[3] = s3;
  }
}

// The same for floats; up to kWide numbers behind `out` are written as well.
constexpr std::size_t kWide = 4 * kLanes;
VANTORA_VECTOR_UNIT void Correlate(const float* __restrict taps, std::size_t tapCount,
                                   const float* __restrict in, float* __restrict out,
                                   std::size_t count) {
  for (std::size_t i = 0; i < count; i += kWide) {
    Lanes s0{}, s1{}, s2{}, s3{};
    for (std::size_t k = 0; k < tapCount; ++k) {
      const Lanes* const from = reinterpret_cast<const Lanes*>(in + i + k);
      s0 += taps[k] * from[0];
      s1 += taps[k] * from[1];
      s2 += taps[k] * from[2];
      s3 += taps[k] * from[3];
    }
    Lanes* const to = reinterpret_cast<Lanes*>(out + i);
    to[0] = s0, to[1] = s1, to[2] = s2, to[3] = s3;
  }
}

VANTORA_VECTOR_UNIT void AddTimes(double* __restrict target, const double* __restrict source,
                                  double times, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) target[i] += times * source[i];
}

}  // namespace

ArModel::ArModel(std::size_t order, std::size_t longest)
    : order_(order),
      forward_(longest + order + kWide),
      backward_(longest),
      matched_(longest + kWide),
      taps_(order + 1),
      a_(order + kLongestGap + 1 + kBlock),
      backwards_(order + 1),
      matrix_(kLongestGap * kLongestGap),
      gap_(kLongestGap + kBlock),
      taken_(kLongestGap),
      around_(2 * order + kLongestGap + kBlock),
      errors_(order + kLongestGap + 2 * kBlock),
      alike_(kLongestGap + kBlock) {
  a_[0] = 1;
}

void ArModel::Fit(const float* sound, std::size_t length) {
  std::copy_n(sound, length, forward_.begin());
  std::copy_n(sound, length, backward_.begin());
  std::fill(a_.begin(), a_.end(), 0.0);
  a_[0] = 1;
  Sums sums;
  if (length > 1) sums = PairSums(sound + 1, sound, length - 1);
  for (std::size_t m = 1; m <= order_ && m < length; ++m) {
    const double k = Reflection(sums);
    sums = Stage(forward_.data() + m, backward_.data(), length - m, static_cast<float>(k));
    for (std::size_t low = 1, high = m - 1; low <= high; ++low, --high) {
      const double a = a_[low], b = a_[high];
      a_[low] = a + k * b;
      a_[high] = b + k * a;
    }
    a_[m] = k;
  }
  for (std::size_t k = 0; k <= order_; ++k) backwards_[order_ - k] = a_[k];
  Correlate(a_.data(), order_ + 1, a_.data(), alike_.data(), std::min(order_ + 1, kLongestGap));
}

void ArModel::Add(const float* difference, std::size_t first, std::size_t count,
                  std::size_t length) {
  for (std::size_t i = 0; i < count; ++i) {
    const float by = difference[i];
    if (by == 0) continue;
    const std::size_t at = first + i, behind = std::min(order_, length - 1 - at);
    for (std::size_t k = 0; k <= behind; ++k) forward_[at + k] += static_cast<float>(a_[k]) * by;
    const std::size_t before = std::min(order_, at);
    for (std::size_t k = 0; k <= before; ++k) backward_[at - k] += static_cast<float>(a_[k]) * by;
  }
}

void ArModel::Match(std::size_t length) {
  std::copy_n(a_.begin(), order_ + 1, taps_.begin());
  std::fill(forward_.begin() + static_cast<std::ptrdiff_t>(length), forward_.end(), 0.0F);
  Correlate(taps_.data(), order_ + 1, forward_.data(), matched_.data(), length);
  double energy = 0;  // of the part of the model that the piece's end leaves
  for (std::size_t k = 0; k < std::min(order_, length); ++k) {
    energy += a_[k] * a_[k];
    matched_[length - 1 - k] /= static_cast<float>(std::sqrt(energy));
  }
  const auto scale = static_cast<float>(1 / std::sqrt(energy + a_[order_] * a_[order_]));
  for (std::size_t i = 0; i + order_ < length; ++i) matched_[i] *= scale;
}

void ArModel::Errors(const float* sound, std::size_t first) {
  std::copy_n(sound + first - order_, rows_ + order_, around_.begin());
  Correlate(backwards_.data(), order_ + 1, around_.data(), errors_.data(), rows_);
  std::fill(errors_.begin() + static_cast<std::ptrdiff_t>(rows_), errors_.end(), 0.0);
}

// Row r of the errors knows unknown i with the weight a_[r - i]. With order_ rows behind the gap
// the sums depend on the distance alone.
void ArModel::Equations(std::size_t count) {
  Correlate(a_.data(), order_ + 1, errors_.data(), gap_.data(), count);
  for (std::size_t j = 0; j < count; ++j) {
    double* const column = matrix_.data() + j * kLongestGap;
    for (std::size_t i = j; i < count; ++i) {
      const std::size_t apart = i - j, behind = rows_ - 1 - i;
      double sum = apart <= order_ ? alike_[apart] : 0;
      for (std::size_t k = behind + 1; k + apart <= order_; ++k) sum -= a_[k] * a_[k + apart];
      column[i] = sum;
    }
  }
}

// Cholesky's method. The matrix is positive; what rounding takes off it where a piece is foretold
// almost without error is put on again.
void ArModel::Factor(std::size_t count) {
  const double least = 1e-12 * matrix_[0];
  for (std::size_t j = 0; j < count; ++j) {
    double* const column = matrix_.data() + j * kLongestGap;
    for (std::size_t k = j - std::min(order_, j); k < j; ++k) {
      const double* const other = matrix_.data() + k * kLongestGap;
      AddTimes(column + j, other + j, -other[j], std::min(count, k + order_ + 1) - j);
    }
    const double root = std::sqrt(std::max(column[j], least));
    for (std::size_t i = j; i < count; ++i) column[i] /= root;
    gap_[j] /= root;
    taken_[j] = gap_[j] * gap_[j];
    AddTimes(gap_.data() + j + 1, column + j + 1, -gap_[j], count - j - 1);
    column[j] = root;
  }
}

void ArModel::Look(const float* sound, std::size_t first, std::size_t count, std::size_t length) {
  rows_ = std::min(count + order_, length - first);
  Errors(sound, first);
  const auto energy = [this](std::size_t from, std::size_t to) {
    double sum = 0;
    for (std::size_t row = from; row < to; ++row) sum += errors_[row] * errors_[row];
    return sum;
  };
  behind_ = energy(count, rows_);
  before_ = energy(0, count) + behind_;
  Equations(count);
  Factor(count);
}

float ArModel::Fill(float* sound, std::size_t first, std::size_t count, std::size_t length) {
  Look(sound, first, count, length);
  double left = before_;
  for (std::size_t i = 0; i < count; ++i) left -= taken_[i];
  for (std::size_t i = count; i-- > 0;) {
    const double* const column = matrix_.data() + i * kLongestGap;
    for (std::size_t k = i + 1; k < count; ++k) gap_[i] -= column[k] * gap_[k];
    gap_[i] /= column[i];
    sound[first + i] -= static_cast<float>(gap_[i]);
  }
  return before_ > 0 ? static_cast<float>(std::clamp(left / before_, 0.0, 1.0)) : 0.0F;
}

}  // namespace vantora
