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

namespace {

std::vector<Control*> InTabOrder(const Form& form) {
  std::vector<Control*> order = form.Controls;
  std::stable_sort(order.begin(), order.end(),
                   [](const Control* a, const Control* b) { return a->TabIndex < b->TabIndex; });
  return order;
}

bool SameGroup(const OptionButton& option, const Control* other) {
  const auto* sibling = dynamic_cast<const OptionButton*>(other);
  return sibling != nullptr && sibling->Group() == option.Group();
}

// Returns the option at which the Tab key enters a group.
const Control* EntryOf(const std::vector<Control*>& order, const OptionButton& option) {
  const Control* first = nullptr;
  for (const Control* other : order) {
    if (!SameGroup(option, other) || !CanHaveFocus(*other)) continue;
    if (static_cast<const OptionButton*>(other)->Value()) return other;
    if (first == nullptr) first = other;
  }
  return first;
}

}  // namespace

Control* FirstFocus(const Form& form) {
  const std::vector<Control*> order = InTabOrder(form);
  const auto first = std::find_if(order.begin(), order.end(),
                                  [](const Control* control) { return CanHaveFocus(*control); });
  return first == order.end() ? nullptr : *first;
}

Control* NextFocus(const Form& form, const Control* from, bool back) {
  const std::vector<Control*> order = InTabOrder(form);
  const auto stop = [&order, from](const Control* control) {
    if (control == from || !CanHaveFocus(*control)) return false;
    const auto* option = dynamic_cast<const OptionButton*>(control);
    if (option == nullptr) return true;
    return !SameGroup(*option, from) && EntryOf(order, *option) == control;
  };
  std::vector<Control*> way = order;  // begins behind `from` and ends with `from`
  const auto place = std::find(way.begin(), way.end(), from);
  if (place != way.end()) std::rotate(way.begin(), place + 1, way.end());
  if (back) std::reverse(way.begin(), way.end());
  const auto next = std::find_if(way.begin(), way.end(), stop);
  return next == way.end() ? nullptr : *next;
}

Control* FocusReports::TakeReported(const Form& form) {
  const auto reported = reported_.find(&form);
  return reported == reported_.end() ? nullptr : std::exchange(reported->second, nullptr);
}

// The handler of the loss may give the focus to a third control. The third control has already got
// its report then.
void FocusReports::Came(Control& control) {
  const Form& form = control.Owner();
  Control*& reported = reported_[&form];
  if (reported == &control) return;
  if (Control* before = TakeReported(form)) report_(*before, false);
  const auto now = reported_.find(&form);
  if (now == reported_.end() || now->second != nullptr) return;
  now->second = &control;
  report_(control, true);
}

void FocusReports::Went(const Control& control) {
  const auto reported = reported_.find(&control.Owner());
  if (reported == reported_.end() || reported->second != &control) return;
  if (Control* before = TakeReported(control.Owner())) report_(*before, false);
}

}  // namespace vantora
