// A timer, which does work of a window again and again.
#pragma once

#include "platform/controls/control.h"

namespace vantora {

// Runs `OnTimer` every `Interval` milliseconds while the timer is enabled and its window is loaded.
class Timer : public Control {
 public:
  Timer(Form& form, Text name, int index = -1);
  ~Timer() override;
  ControlKind Kind() const override { return ControlKind::Timer; }

  Property<int> Interval{*this, 0};
  void Restart();  // enables the timer and begins a whole interval
  int Starts = 0;  // number of calls of Restart
  std::function<void()> OnTimer;
};

}  // namespace vantora
