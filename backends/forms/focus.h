// The focus: which controls take it, their order, and the reports to the controls.
#pragma once

#include "platform/form.h"

#include <functional>
#include <map>
#include <vector>

namespace vantora {

bool HasMouseHandler(const Control& control);
bool TakesFocus(const Control& control);  // from the Tab key and from the program
// Picture buttons and labels take the focus from the keyboard only, so that a click on a button
// does not end the typing in a text box.
bool TakesFocusByClick(const Control& control);
bool CanHaveFocus(const Control& control);  // takes the focus, and is visible and enabled

// The first control of a form in the order of the Tab key; nothing if none can have the focus.
Control* FirstFocus(const Form& form);
// The control that the Tab key leads to from `from`, or from the window if that is nothing; with
// `back`, Shift and the Tab key. A group of option buttons is one stop: the option that is set,
// else the first one. Nothing if there is no other stop.
Control* NextFocus(const Form& form, const Control* from, bool back);

// Reports the focus to controls. A control gets the report that it has the focus once. It gets the
// report of the loss when another control of the same window gets the focus: a window that goes
// behind another window and comes back keeps its focus.
class FocusReports {
 public:
  using Report = std::function<void(Control& control, bool came)>;
  explicit FocusReports(Report report) : report_(std::move(report)) {}

  void Came(Control& control);
  void Went(const Control& control);
  void Forget(const Form& form) { reported_.erase(&form); }

 private:
  Control* TakeReported(const Form& form);

  Report report_;
  std::map<const Form*, Control*> reported_;  // the control with the last report; may be destroyed
};

}  // namespace vantora
