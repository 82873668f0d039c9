// Which controls take the focus, in which order the Tab key walks through them, and who is told of
// the focus when.
#pragma once

#include "platform/form.h"

#include <functional>
#include <map>
#include <vector>

namespace vantora {

bool HasMouseHandler(const Control& control);
bool TakesFocus(const Control& control);  // by the Tab key and from the program
// Buttons drawn from pictures and labels take the focus by the keyboard alone: a click on one ends
// no typing in a text box.
bool TakesFocusByClick(const Control& control);
bool CanHaveFocus(const Control& control);  // it takes the focus, and is in sight and in use

// The controls of a form that can have the focus, in the order of the Tab key.
std::vector<Control*> FocusChain(const Form& form);
// The next one behind `from`, or before it; the first or last one when `from` is nothing. Nothing
// when no control can have the focus.
Control* NextFocus(const Form& form, const Control* from, bool back);

// A control is told that it has the focus once, and that it has lost it when another control of its
// window has it: a window that goes behind another one and comes back keeps its focus.
class FocusReports {
 public:
  using Report = std::function<void(Control& control, bool came)>;
  explicit FocusReports(Report report) : report_(std::move(report)) {}

  void Came(Control& control);
  void Went(const Control& control);
  void Forget(const Form& form) { told_.erase(&form); }

 private:
  Control* TakeTold(const Form& form);

  Report report_;
  std::map<const Form*, Control*> told_;  // those that were told they have the focus; may be gone
};

}  // namespace vantora
