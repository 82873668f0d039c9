#include "backends/sound/restoration/ar_model.h"

#include "backends/sound/edits/vector_unit.h"

#include <algorithm>
#include <cmath>

namespace vantora {

namespace {

constexpr double kMostReflection = 0.999999;  // with 1 the model would never forget

// The reflection that leaves least of both errors. Sums in sixteen parts, so that the vector unit
// can take them side by side.
VANTORA_VECTOR_UNIT double Reflection(const float* forward, const float* backward,
                                      std::size_t count) {
  constexpr std::size_t kParts = 16;
  std::array<float, kParts> both{}, cross{};
  std::size_t i = 0;
  for (; i + kParts <= count; i += kParts) {
    for (std::size_t part = 0; part < kParts; ++part) {
      const float f = forward[i + part], b = backward[i + part];
      both[part] += f * f + b * b;
      cross[part] += f * b;
    }
  }
  double sum = 0, product = 0;
  for (; i < count; ++i) {
    const double f = double{forward[i]}, b = double{backward[i]};
    sum += f * f + b * b;
    product += f * b;
  }
  for (std::size_t part = 0; part < kParts; ++part) {
    sum += double{both[part]};
    product += double{cross[part]};
  }
  return sum > 1e-6 ? std::clamp(-2 * product / sum, -kMostReflection, kMostReflection) : 0;
}

// One stage of the lattice: both errors of the next order. `backward` belongs to the sample at
// which its prediction aims, so that nothing moves from stage to stage.
VANTORA_VECTOR_UNIT void Stage(float* __restrict forward, float* __restrict backward,
                               std::size_t count, float k) {
  for (std::size_t i = 0; i < count; ++i) {
    const float f = forward[i], b = backward[i];
    forward[i] = f + k * b;
    backward[i] = b + k * f;
  }
}

VANTORA_VECTOR_UNIT double Weighted(const float* sound, const double* weights, std::size_t count) {
  constexpr std::size_t kParts = 8;
  std::array<double, kParts> parts{};
  std::size_t i = 0;
  for (; i + kParts <= count; i += kParts) {
    for (std::size_t part = 0; part < kParts; ++part) {
      parts[part] += weights[i + part] * double{sound[i + part]};
    }
  }
  double sum = 0;
  for (; i < count; ++i) sum += weights[i] * double{sound[i]};
  for (const double part : parts) sum += part;
  return sum;
}

}  // namespace

ArModel::ArModel(std::size_t order, std::size_t longest)
    : order_(order),
      forward_(longest),
      backward_(longest),
      reflection_(order),
      a_(order + 1),
      backwards_(order + 1),
      band_(kLongestGap, std::vector<double>(std::min(order, kLongestGap) + 1)),
      errors_(kLongestGap + order) {
  a_[0] = 1;
}

void ArModel::Fit(const float* sound, std::size_t length) {
  std::copy_n(sound, length, forward_.begin());
  std::copy_n(sound, length, backward_.begin());
  float* const forward = forward_.data();
  float* const backward = backward_.data();
  std::fill(a_.begin(), a_.end(), 0.0);
  a_[0] = 1;
  for (std::size_t m = 1; m <= order_ && m < length; ++m) {
    const std::size_t count = length - m;
    const double k = Reflection(forward + m, backward, count);
    reflection_[m - 1] = static_cast<float>(k);
    Stage(forward + m, backward, count, reflection_[m - 1]);
    for (std::size_t low = 1, high = m - 1; low <= high; ++low, --high) {
      const double a = a_[low], b = a_[high];
      a_[low] = a + k * b;
      a_[high] = b + k * a;
    }
    a_[m] = k;
  }
}

void ArModel::Filter(const float* sound, std::size_t length) {
  std::copy_n(sound, length, forward_.begin());
  std::copy_n(sound, length, backward_.begin());
  for (std::size_t m = 1; m <= order_ && m < length; ++m) {
    Stage(forward_.data() + m, backward_.data(), length - m, reflection_[m - 1]);
  }
}

void ArModel::Errors(const float* sound, std::size_t first, std::size_t rows) {
  for (std::size_t k = 0; k <= order_; ++k) backwards_[order_ - k] = a_[k];
  for (std::size_t row = 0; row < rows; ++row) {
    errors_[row] = Weighted(sound + first + row - order_, backwards_.data(), order_ + 1);
  }
}

// Row r of the errors knows unknown i with the weight a_[r - i]. With order_ rows behind the gap
// the sums depend on the distance alone.
void ArModel::Equations(std::size_t count, std::size_t rows) {
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t behind = std::min(order_, rows - 1 - i);
    double right = 0;
    for (std::size_t k = 0; k <= behind; ++k) right -= a_[k] * errors_[i + k];
    gap_[i] = right;
    for (std::size_t apart = 0; apart <= std::min(order_, i); ++apart) {
      if (i > apart && behind == order_) {
        band_[i][apart] = band_[i - 1][apart];
        continue;
      }
      double sum = 0;
      for (std::size_t k = 0; k <= behind && k + apart <= order_; ++k) sum += a_[k] * a_[k + apart];
      band_[i][apart] = sum;
    }
  }
}

// Cholesky's method within the band. The matrix is positive; what rounding takes off it where a
// piece is foretold almost without error is put on again.
void ArModel::Solve(std::size_t count) {
  const double least = 1e-12 * band_[0][0];
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t from = i - std::min(order_, i);
    for (std::size_t j = from; j <= i; ++j) {
      double sum = band_[i][i - j];
      for (std::size_t k = std::max(from, j - std::min(order_, j)); k < j; ++k) {
        sum -= band_[i][i - k] * band_[j][j - k];
      }
      band_[i][i - j] = j < i ? sum / band_[j][0] : std::sqrt(std::max(sum, least));
    }
    for (std::size_t k = from; k < i; ++k) gap_[i] -= band_[i][i - k] * gap_[k];
    gap_[i] /= band_[i][0];
  }
  for (std::size_t i = count; i-- > 0;) {
    gap_[i] /= band_[i][0];
    for (std::size_t k = i - std::min(order_, i); k < i; ++k) gap_[k] -= band_[i][i - k] * gap_[i];
  }
}

float ArModel::Fill(float* sound, std::size_t first, std::size_t count, std::size_t length) {
  const std::size_t rows = std::min(count + order_, length - first);
  const auto energy = [&] {
    Errors(sound, first, rows);
    double sum = 0;
    for (std::size_t row = 0; row < rows; ++row) sum += errors_[row] * errors_[row];
    return sum;
  };
  before_ = energy();
  behind_ = 0;
  for (std::size_t row = count; row < rows; ++row) behind_ += errors_[row] * errors_[row];
  std::fill_n(sound + first, count, 0.0F);
  Errors(sound, first, rows);
  Equations(count, rows);
  Solve(count);
  for (std::size_t i = 0; i < count; ++i) sound[first + i] = static_cast<float>(gap_[i]);
  return before_ > 0 ? static_cast<float>(std::min(energy() / before_, 1.0)) : 0.0F;
}

}  // namespace vantora
