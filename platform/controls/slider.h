// A slider: the user chooses a value between two ends by moving a knob.
#pragma once

#include "platform/controls/control.h"

namespace vantora {

class Slider : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::Slider; }
  std::optional<Text> Read(const Text& property) const override;

  Property<int> Min{*this, 0}, Max{*this, 100}, Value{*this, 0};
  Property<bool> Vertical{*this, false};  // the minimum is at the top
  bool Upwards = false;                   // for a vertical slider: the greatest value is at the top
  // For levels. Equal distances on the slider multiply the value by equal factors: in the middle,
  // the value is the square root of the greatest value. The minimum has to be 0.
  bool Logarithmic = false;
  std::function<void()> Change;
};

}  // namespace vantora
