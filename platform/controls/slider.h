// A value between two ends that a person pulls.
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
  bool Upwards = false;                   // of a vertical one: the greatest value is at the top
  // Half of the way to the greatest value is its square root: for levels, from a minimum of 0.
  bool Logarithmic = false;
  std::function<void()> Change;
};

}  // namespace vantora
