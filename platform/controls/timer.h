// Work that a window does again and again.
#pragma once

#include "platform/controls/control.h"

namespace vantora {

// Runs `OnTimer` every `Interval` milliseconds while it is enabled and its window is loaded.
class Timer : public Control {
 public:
  Timer(Form& form, Text name, int index = -1);
  ~Timer() override;
  ControlKind Kind() const override { return ControlKind::Timer; }

  Property<int> Interval{*this, 0};
  void Restart();  // on, with a whole interval to go
  int Starts = 0;  // how often that was asked for
  std::function<void()> OnTimer;
};

}  // namespace vantora
