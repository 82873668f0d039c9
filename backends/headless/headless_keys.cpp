// The key actions of the hands without a screen.

#include "backends/forms/focus.h"
#include "backends/forms/reach.h"
#include "backends/headless/headless_hands.h"

#include "platform/slider_scale.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <utility>

namespace vantora {

void HeadlessHands::Key(Form& form, const Text& key) {
  const std::optional<KeyStroke> stroke = KeyByName(key);
  if (!stroke) Refuse("there is no key " + Utf8(key));
  Reach(form, form.EscapeWhileDisabled && stroke->Code == kKeyEscape);
  if (loop_.OpenMenu(form) != nullptr) {
    if (stroke->Code == kKeyEscape) loop_.CloseMenu();
    return;
  }
  Strike(form, *stroke);
}

// The handlers of the press may turn the loop, so the release is posted before the press. The
// release reaches the window that is in front at that time.
void HeadlessHands::Strike(Form& form, const KeyStroke& stroke) {
  const auto letGo = std::make_shared<bool>(false);
  const auto release = [this, letGo, code = stroke.Code] {
    Form* front = loop_.Front();
    if (std::exchange(*letGo, true) || front == nullptr) return;
    Control* focus = loop_.Focus(*front);
    loop_.Keys().Up(*front, focus, code, false, [&] { LetGo(*focus, code); });
  };
  loop_.Post(release);
  Control* focus = loop_.Focus(form);
  loop_.Keys().Down(form, focus, stroke, [&] {
    if (focus != nullptr) return Effect(*focus, stroke);
    if (stroke.Code == kKeyTab) MoveFocus(form, stroke.Shift);
  });
  release();
  loop_.ThrowIfStopped();
}

// The action of a control on a key. It depends on the kind of the control.
void HeadlessHands::Effect(Control& control, const KeyStroke& stroke) {
  if (stroke.Code == kKeyTab) return MoveFocus(control.Owner(), stroke.Shift);
  const bool space = stroke.Code == kKeySpace;
  switch (control.Kind()) {
    case ControlKind::TextBox:
      return TypeInto(static_cast<TextBox&>(control), stroke);
    case ControlKind::Label:
      if (space || stroke.Code == kKeyReturn) {
        Call(control, control.Click ? control.Click : control.DblClick);
      }
      return;
    case ControlKind::PictureButton:
      if (stroke.Code == kKeyReturn) return Click(control, kLeftButton);
      if (!space) return WalkOn(control.Owner(), stroke.Code);
      keyHeld_ = &control;
      return Down(control, kLeftButton);
    case ControlKind::OptionButton:
      if (!space) return MoveOption(static_cast<OptionButton&>(control), stroke.Code);
      keyHeld_ = &control;
      return;
    case ControlKind::CheckBox:
      if (!space) return WalkOn(control.Owner(), stroke.Code);
      keyHeld_ = &control;
      return;
    case ControlKind::ComboBox:
    case ControlKind::ListBox:
      return MoveInList(static_cast<ListControl&>(control), stroke);
    case ControlKind::ListView:
      return MoveInView(static_cast<ListView&>(control), stroke);
    case ControlKind::Slider:
      return MoveSlider(static_cast<Slider&>(control), stroke.Code);
    default:
      return;
  }
}

// The space bar acts when it is released.
void HeadlessHands::LetGo(Control& control, int key) {
  if (key != kKeySpace || std::exchange(keyHeld_, nullptr) != &control) return;
  if (control.Kind() == ControlKind::PictureButton) return Up(control, kLeftButton, true);
  Own(control);
}

// On a button an arrow key moves the focus, as the Tab key does.
void HeadlessHands::WalkOn(Form& form, int key) {
  const bool back = key == kKeyUp || key == kKeyLeft;
  if (back || key == kKeyDown || key == kKeyRight) MoveFocus(form, back);
}

void HeadlessHands::MoveFocus(Form& form, bool back) {
  Control* next = NextFocus(form, loop_.Focus(form), back);
  if (next == nullptr) return;
  loop_.SetFocus(*next);
  const auto* box = dynamic_cast<TextBox*>(next);
  marked_ = box != nullptr && box->SelectOnFocus ? box : nullptr;
}

void HeadlessHands::Type(Control& control, const Text& text) {
  if (control.Kind() != ControlKind::TextBox) Refuse(NameOf(control) + " takes no text");
  Reach(control);
  Form& form = control.Owner();
  loop_.SetFocus(control);
  const auto strike = [&](const KeyStroke& stroke) {
    // If a handler moves the focus, the rest of the text goes there, as on a screen.
    if (loop_.Reachable(form)) Strike(form, stroke);
  };
  strike(*KeyByName(L"Ctrl+A"));
  strike(*KeyByName(L"Delete"));
  for (const wchar_t c : text) strike(KeyFor(c));
}

constexpr const wchar_t* kLineEnd = L"\r\n";

// The cursor always stands behind the last character. Home and Left do nothing, because no test or
// script needs them.
void HeadlessHands::TypeInto(TextBox& box, const KeyStroke& stroke) {
  const bool marked = std::exchange(marked_, nullptr) == &box;
  Text text = box.Text;
  if (stroke.Control) {
    if (stroke.Code == 'A') marked_ = &box;
    return;
  }
  if (stroke.Code == kKeyDelete) {
    if (marked) text.clear();
  } else if (stroke.Code == kKeyBackspace) {
    if (marked) text.clear();
    if (text.ends_with(kLineEnd)) text.pop_back();
    if (!text.empty()) text.pop_back();
  } else if (stroke.Code == kKeyReturn && box.MultiLine) {
    if (marked) text.clear();
    text += kLineEnd;
  } else if (stroke.Character >= kKeySpace) {
    if (marked) text.clear();
    const auto limit = static_cast<std::size_t>(std::max(box.MaxLength(), 0));
    if (limit == 0 || text.size() < limit) text += static_cast<wchar_t>(stroke.Character);
  }
  if (text == box.Text()) return;
  box.Text = text;
  Call(box, box.Change);
}

// The up key increases the value, except if the minimum is at the top.
void HeadlessHands::MoveSlider(Slider& slider, int key) {
  const SliderScale scale = SliderScale::Of(slider);
  const bool downwards = slider.Vertical && !slider.Upwards;
  const bool page = key == kKeyPageUp || key == kKeyPageDown;
  switch (key) {
    case kKeyHome:
      return SetSlider(slider, slider.Min);
    case kKeyEnd:
      return SetSlider(slider, slider.Max);
    case kKeyUp:
    case kKeyPageUp:
      return SetSlider(slider, scale.Stepped(slider.Value, !downwards, page));
    case kKeyDown:
    case kKeyPageDown:
      return SetSlider(slider, scale.Stepped(slider.Value, downwards, page));
    case kKeyLeft:
    case kKeyRight:
      return SetSlider(slider, scale.Stepped(slider.Value, key == kKeyRight, false));
    default:
      return;
  }
}

namespace {

// Returns the distance from one option to another in the direction of an arrow key, or 0 if the
// other option lies elsewhere.
int DistanceTo(const Control& from, const Control& to, int key) {
  const int across = to.Left + to.Width / 2 - from.Left - from.Width / 2;
  const int down = to.Top + to.Height / 2 - from.Top - from.Height / 2;
  const int along = key == kKeyLeft    ? -across
                    : key == kKeyRight ? across
                    : key == kKeyUp    ? -down
                    : key == kKeyDown  ? down
                                       : 0;
  return along <= 0 ? 0 : std::abs(across) + std::abs(down);
}

}  // namespace

// An arrow key moves the focus to the nearest option of the group in its direction. If the present
// option is set, the arrow key also sets the new option.
void HeadlessHands::MoveOption(OptionButton& option, int key) {
  OptionButton* nearest = nullptr;
  int least = 0;
  for (Control* control : option.Owner().Controls) {
    auto* other = dynamic_cast<OptionButton*>(control);
    if (other == nullptr || other->Group() != option.Group() || !CanHaveFocus(*other)) continue;
    const int distance = DistanceTo(option, *other, key);
    if (distance == 0 || (nearest != nullptr && distance >= least)) continue;
    nearest = other;
    least = distance;
  }
  if (nearest == nullptr) return;
  if (option.Value()) Own(*nearest);
  if (loop_.Alive(*nearest)) loop_.SetFocus(*nearest);
}

}  // namespace vantora
