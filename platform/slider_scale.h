// How the length of a slider and the steps of its keys stand for its values.
#pragma once

#include "platform/controls/slider.h"

namespace vantora {

struct SliderScale {
  int Min = 0, Max = 100;
  bool Logarithmic = false;

  static SliderScale Of(const Slider& slider);

  // From 0 at the minimum to 1 at the maximum, and back.
  double ShareOf(int value) const;
  int ValueAt(double share) const;

  // What one stroke of an arrow, or of a page key, makes of a value.
  int Stepped(int value, bool more, bool page) const;
};

}  // namespace vantora
