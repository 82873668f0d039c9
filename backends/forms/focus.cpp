#include "backends/forms/focus.h"

#include <algorithm>
#include <utility>

namespace vantora {

bool HasMouseHandler(const Control& control) {
  return control.Click || control.DblClick || control.MouseDown || control.MouseUp ||
         control.MouseMove;
}

bool TakesFocus(const Control& control) {
  switch (control.Kind()) {
    case ControlKind::TextBox:
    case ControlKind::CheckBox:
    case ControlKind::OptionButton:
    case ControlKind::ComboBox:
    case ControlKind::ListBox:
    case ControlKind::ListView:
    case ControlKind::Slider:
      return true;
    case ControlKind::Label:
      return static_cast<const Label&>(control).TabStop;
    case ControlKind::PictureButton:  // a plain picture has no handler
      return static_cast<const PictureButton&>(control).TabStop && HasMouseHandler(control);
    case ControlKind::PictureBox:
      return static_cast<bool>(control.KeyDown);
    default:
      return false;
  }
}

bool TakesFocusByClick(const Control& control) {
  return TakesFocus(control) && control.Kind() != ControlKind::PictureButton &&
         control.Kind() != ControlKind::Label;
}

bool CanHaveFocus(const Control& control) {
  return TakesFocus(control) && control.InSight() && control.InUse();
}

std::vector<Control*> FocusChain(const Form& form) {
  std::vector<Control*> chain;
  for (Control* control : form.Controls) {
    if (CanHaveFocus(*control)) chain.push_back(control);
  }
  std::stable_sort(chain.begin(), chain.end(),
                   [](const Control* a, const Control* b) { return a->TabIndex < b->TabIndex; });
  return chain;
}

Control* NextFocus(const Form& form, const Control* from, bool back) {
  std::vector<Control*> chain = FocusChain(form);
  if (chain.empty()) return nullptr;
  if (back) std::reverse(chain.begin(), chain.end());
  const auto place = std::find(chain.begin(), chain.end(), from);
  const bool last = place == chain.end() || place + 1 == chain.end();
  return last ? chain.front() : *(place + 1);
}

Control* FocusReports::TakeTold(const Form& form) {
  const auto told = told_.find(&form);
  return told == told_.end() ? nullptr : std::exchange(told->second, nullptr);
}

// What loses the focus may give it to a third control, which has been told by then.
void FocusReports::Came(Control& control) {
  const Form& form = control.Owner();
  Control*& told = told_[&form];
  if (told == &control) return;
  if (Control* before = TakeTold(form)) report_(*before, false);
  const auto now = told_.find(&form);
  if (now == told_.end() || now->second != nullptr) return;
  now->second = &control;
  report_(control, true);
}

void FocusReports::Went(const Control& control) {
  const auto told = told_.find(&control.Owner());
  if (told == told_.end() || told->second != &control) return;
  if (Control* before = TakeTold(control.Owner())) report_(*before, false);
}

}  // namespace vantora
