// Converts between a slider's value and its position, and computes the steps of its keys.
#pragma once

#include "platform/controls/slider.h"

namespace vantora {

struct SliderScale {
  int Min = 0, Max = 100;
  bool Logarithmic = false;

  static SliderScale Of(const Slider& slider);

  // The position of a value, from 0 at the minimum to 1 at the maximum, and the value at a
  // position.
  double ShareOf(int value) const;
  int ValueAt(double share) const;

  // The value after one press of an arrow key or a page key.
  int Stepped(int value, bool more, bool page) const;
};

}  // namespace vantora
