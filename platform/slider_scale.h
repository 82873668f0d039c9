// Converts between a slider's value and its position, and computes the steps of its keys.
#pragma once

#include "platform/controls.h"

#include <algorithm>
#include <cmath>

namespace vantora {

struct SliderScale {
  int Min = 0, Max = 100;
  bool Logarithmic = false;

  static SliderScale Of(const Slider& slider) {
    return {slider.Min, slider.Max, slider.Logarithmic};
  }

  // The position of a value, from 0 at the minimum to 1 at the maximum, and the value at a
  // position.
  double ShareOf(int value) const {
    if (Max == Min) return 0;
    if (Logarithmic) return value <= 1 ? 0 : std::log(value) / std::log(Max);
    return (static_cast<double>(value) - Min) / (static_cast<double>(Max) - Min);
  }
  int ValueAt(double share) const {
    if (share <= 0) return Min;
    if (share >= 1) return Max;
    if (Logarithmic) return static_cast<int>(std::lround(std::pow(Max, share)));
    return Min + static_cast<int>(std::lround(share * (static_cast<double>(Max) - Min)));
  }

  // The value after one press of an arrow key or a page key.
  int Stepped(int value, bool more, bool page) const {
    const auto [low, high] = std::minmax(Min, Max);
    int step = page ? std::max((high - low) / 10, 1) : 1;
    if (Logarithmic) {
      const double share = ShareOf(value) + (more ? 1 : -1) * (page ? 0.1 : 0.01);
      step = std::max(std::abs(ValueAt(share) - value), 1);
    }
    return std::clamp(more ? value + step : value - step, low, high);
  }
};

}  // namespace vantora
