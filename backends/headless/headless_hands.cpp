// The mouse actions of the hands without a screen.

#include "backends/headless/headless_hands.h"

#include "backends/forms/focus.h"
#include "backends/forms/reach.h"

#include "platform/fader_knob.h"
#include "platform/slider_scale.h"
#include "platform/twips.h"

#include <algorithm>
#include <memory>

namespace vantora {

namespace {

int OnPixel(int twips) {
  return twips - twips % kTwipsPerPixel;
}

// Returns the pixel in the middle between two edges.
int Middle(int from, int to) {
  return OnPixel((from + to - kTwipsPerPixel) / 2);
}

// Returns the values that a slider takes when the mouse is pressed at `from` and released at `to`,
// in thousandths of the slider. If the mouse grips the knob off its middle, the knob keeps its
// distance from the mouse.
std::vector<int> ValuesOfDrag(const Slider& slider, int from, int to) {
  std::vector<int> values;
  if (dynamic_cast<const FaderKnob*>(&slider) != nullptr) {
    const int track = slider.Height / kTwipsPerPixel;
    const KnobTravel travel{track, FaderKnob::kKnobHeight / kTwipsPerPixel, slider.Max, slider.Min};
    const int start = track * from / 1000, grip = travel.GripOf(slider.Value, start);
    if (!travel.On(slider.Value, start)) values.push_back(travel.ValueAt(start - grip));
    if (to != from) values.push_back(travel.ValueAt(track * to / 1000 - grip));
    return values;
  }
  for (const int place : {from, to}) {
    const bool fromTheEnd = slider.Vertical && slider.Upwards;
    const double share = std::clamp(fromTheEnd ? 1000 - place : place, 0, 1000) / 1000.0;
    values.push_back(SliderScale::Of(slider).ValueAt(share));
  }
  return values;
}

}  // namespace

// ---- reaching ----

void HeadlessHands::Reach(Form& form, bool evenDisabled) {
  vantora::Reach(loop_, form, evenDisabled);
  loop_.Touch(form);
}

void HeadlessHands::Reach(Control& control) {
  vantora::Reach(loop_, control);
  loop_.Touch(control.Owner());
  if (loop_.OpenMenu(control.Owner()) != nullptr) loop_.CloseMenu();  // a click beside the menu
}

// A copy of the handler runs, because a handler that destroys its own form must not destroy itself.
void HeadlessHands::Call(Control& control, const std::function<void()>& handler) {
  if (handler && loop_.TakesInput(control)) loop_.Deliver(std::function<void()>(handler));
}

void HeadlessHands::CallMouse(Control& control, std::function<void(int)> Control::*handler,
                              int button) {
  if (!loop_.Alive(control)) return;
  if (const auto called = control.*handler) loop_.Deliver([&] { called(button); });
}

// ---- pressing ----

void HeadlessHands::Press(Control& control) {
  Reach(control);
  PointAtMiddle(control);
  Click(control, kLeftButton);
}

void HeadlessHands::ShiftPress(Control& control) {
  Reach(control);
  PointAtMiddle(control);
  shift_ = true;
  Click(control, kLeftButton);
  shift_ = false;
}

void HeadlessHands::RightClick(Control& control) {
  Reach(control);
  PointAtMiddle(control);
  Click(control, kRightButton);
}

void HeadlessHands::DoubleClick(Control& control) {
  Press(control);
  Twice(control);
}

void HeadlessHands::PressAt(Control& control, int at) {
  if (control.Kind() == ControlKind::Slider) return Drag(control, at, at);
  Reach(control);
  Point(control, at);
  Click(control, kLeftButton);
}

void HeadlessHands::DoubleClickAt(Control& control, int at) {
  PressAt(control, at);
  Twice(control);
}

// The second press of a double click calls DblClick, and its release follows. A button without a
// handler for double clicks gets a second press instead.
void HeadlessHands::Twice(Control& control) {
  if (!loop_.TakesInput(control)) return;
  if (control.Kind() == ControlKind::PictureButton && !control.DblClick) {
    return Click(control, kLeftButton);
  }
  if (control.DblClick) Call(control, control.DblClick);
  Up(control, kLeftButton, true);
}

// The handler of the press may turn the loop until the release comes, so the release is posted
// before the press.
void HeadlessHands::Click(Control& control, int button) {
  if (control.MouseDown) return KeepDown(control, 0, button);
  Down(control, button);
  Up(control, button, true);
}

void HeadlessHands::Hold(Control& control, int ms) {
  Reach(control);
  PointAtMiddle(control);
  KeepDown(control, ms, kLeftButton);
}

void HeadlessHands::KeepDown(Control& control, int ms, int button) {
  ++held_;
  const int others = held_ - 1;
  loop_.PostAfter(ms, [this, &control, button] {
    --held_;
    Up(control, button, true);
  });
  Down(control, button);
  while (held_ > others && !loop_.Ended()) loop_.Pass(ms == 0 ? 0 : 1);
}

void HeadlessHands::Down(Control& control, int button) {
  control.ShiftHeld = shift_;
  control.ControlHeld = false;
  if (TakesFocusByClick(control)) loop_.SetFocus(control);
  if (!loop_.TakesInput(control)) return;
  if (auto* picture = dynamic_cast<PictureButton*>(&control)) {
    Call(control, [picture, button] { vantora::Press(*picture, button); });
  } else {
    CallMouse(control, &Control::MouseDown, button);
  }
  if (row_ == 0 || !loop_.TakesInput(control)) return;
  // The right button keeps the selection of several rows that its row belongs to.
  const auto* view = dynamic_cast<const ListView*>(&control);
  const bool rightSelects = view != nullptr && !view->ListItems(row_).Selected();
  if (button == kLeftButton || rightSelects) SelectRow(control, row_, false);
}

// A control that got the press gets the release too, even if the control has been disabled
// meanwhile. Check boxes and option buttons change and raise Click before MouseUp. All other
// controls raise Click after MouseUp.
void HeadlessHands::Up(Control& control, int button, bool inside) {
  if (!loop_.Alive(control)) return;
  const ControlKind kind = control.Kind();
  const bool changes = kind == ControlKind::CheckBox || kind == ControlKind::OptionButton;
  const bool clicks = button == kLeftButton && inside;
  if (clicks && changes) Own(control);
  if (!loop_.Alive(control)) return;
  if (auto* view = dynamic_cast<ListView*>(&control); view != nullptr && inside && row_ > 0) {
    if (const auto click = view->ItemClick) Call(control, [click, row = row_] { click(row); });
  }
  if (!loop_.Alive(control)) return;
  if (kind == ControlKind::PictureButton) {
    loop_.Deliver([&] { vantora::Release(static_cast<PictureButton&>(control), button); });
  } else {
    CallMouse(control, &Control::MouseUp, button);
  }
  const bool besideLines = kind == ControlKind::ListBox && row_ == 0;
  if (!clicks || changes || besideLines || kind == ControlKind::ComboBox) return;
  if (loop_.TakesInput(control)) Call(control, control.Click);
}

// Changes the value of a check box or an option button, and raises Click.
void HeadlessHands::Own(Control& control) {
  if (!loop_.TakesInput(control)) return;
  if (auto* check = dynamic_cast<CheckBox*>(&control)) check->Value = check->Value() == 0 ? 1 : 0;
  if (auto* option = dynamic_cast<OptionButton*>(&control)) option->SetValue(true);
  Call(control, control.Click);
}

// ---- places ----

namespace {

// True for the controls that get the place of the mouse.
bool IsPointed(const Control& control) {
  return control.Kind() == ControlKind::PictureBox || control.Kind() == ControlKind::Label;
}

}  // namespace

void HeadlessHands::Point(Control& control, int at) {
  row_ = PresentRow(control);
  if (!IsPointed(control)) return;
  const int x = OnPixel(std::min(control.Width * at / 1000, control.Width - 1));
  const int y = Middle(0, control.Height);
  if (control.Container != nullptr && !SeenOf(control).Has(x, y)) {
    Refuse(NameOf(control) + " cannot be reached at " + std::to_string(at) + ": out of sight");
  }
  control.MouseX = x;
  control.MouseY = y;
}

// Puts the mouse into the middle of the control. If that place is out of sight, puts it into the
// middle of the visible part.
void HeadlessHands::PointAtMiddle(Control& control) {
  row_ = PresentRow(control);
  if (!IsPointed(control)) return;
  const SeenArea seen = SeenOf(control);
  control.MouseX = Middle(0, control.Width);
  control.MouseY = Middle(0, control.Height);
  if (control.Container == nullptr || seen.Has(control.MouseX, control.MouseY)) return;
  control.MouseX = Middle(seen.Left, seen.Right);
  control.MouseY = Middle(seen.Top, seen.Bottom);
}

void HeadlessHands::MoveTo(Control& control, int x, int y) {
  control.MouseX = x;
  control.MouseY = y;
  if (loop_.TakesInput(control)) CallMouse(control, &Control::MouseMove, kLeftButton);
}

namespace {

bool UnderMouse(const Control& control) {
  return SeenArea{0, 0, control.Width, control.Height}.Has(control.MouseX, control.MouseY);
}

constexpr int kMoves = 4;

}  // namespace

void HeadlessHands::Drag(Control& control, int from, int to) {
  Reach(control);
  if (auto* box = dynamic_cast<PictureBox*>(&control)) return DragOnPicture(*box, from, to);
  auto* slider = dynamic_cast<Slider*>(&control);
  if (slider == nullptr) return Click(control, kLeftButton);
  row_ = 0;
  Down(control, kLeftButton);
  for (const int value : ValuesOfDrag(*slider, from, to)) {
    if (!loop_.TakesInput(control)) break;
    SetSlider(*slider, value);
  }
  Up(control, kLeftButton, to < 1000);  // at 1000 the mouse is no longer inside
}

// The mouse may go beyond the edges, because a button is held.
void HeadlessHands::DragOnPicture(PictureBox& box, int from, int to) {
  Point(box, from);
  const int start = box.MouseX, end = OnPixel(box.Width * to / 1000);
  const int left = box.Left;  // the box may follow the mouse
  Down(box, kLeftButton);
  for (int i = 1; i <= kMoves && loop_.TakesInput(box); ++i) {
    MoveTo(box, OnPixel(start + (end - start) * i / kMoves) + left - box.Left, box.MouseY);
  }
  if (loop_.Alive(box)) Up(box, kLeftButton, UnderMouse(box));
}

// The label may follow the mouse, so the places are counted in the container of the label.
void HeadlessHands::Pull(Control& control, int x, int y) {
  Reach(control);
  row_ = 0;
  control.MouseX = Middle(0, control.Width);
  control.MouseY = Middle(0, control.Height);
  const int startX = control.Left + control.MouseX, startY = control.Top + control.MouseY;
  Down(control, kLeftButton);
  for (int i = 1; i <= kMoves && loop_.TakesInput(control); ++i) {
    MoveTo(control, OnPixel(startX + x * i / kMoves) - control.Left,
           OnPixel(startY + y * i / kMoves) - control.Top);
  }
  if (loop_.Alive(control)) Up(control, kLeftButton, UnderMouse(control));
}

void HeadlessHands::SetSlider(Slider& slider, int value) {
  const auto [low, high] = std::minmax(slider.Min(), slider.Max());
  value = std::clamp(value, low, high);
  if (value == slider.Value()) return;
  slider.Value = value;
  Call(slider, slider.Change);
}

void HeadlessHands::Drop(Control& control, const std::vector<Text>& files) {
  Reach(control);
  auto* list = dynamic_cast<ListView*>(&control);
  if (list == nullptr || !(list->OLEDragDrop || list->OLEDragOver)) {
    Refuse(NameOf(control) + " takes no files");
  }
  bool taken = true;
  if (const auto over = list->OLEDragOver) Call(control, [&] { taken = over(files); });
  if (!taken || !loop_.Alive(control)) return;
  if (const auto drop = list->OLEDragDrop) Call(control, [&] { drop(files); });
}

// ---- menus and windows ----

void HeadlessHands::ChooseMenu(Form& form, const Text& item) {
  Reach(form);
  Menu* menu = loop_.OpenMenu(form);
  if (menu == nullptr) Refuse(NameOf(form) + " has no menu open");
  const auto wanted = [&item](const MenuItem& entry) {
    return entry.Name == item || entry.Caption == item;
  };
  const auto found = std::find_if(menu->Items.begin(), menu->Items.end(), wanted);
  if (found == menu->Items.end()) Refuse("the open menu has no such item");
  if (!found->Enabled) Refuse("the menu's item is disabled");
  const std::function<void()> click = found->Click;
  loop_.CloseMenu();
  if (click) loop_.Deliver(click);
}

void HeadlessHands::Close(Form& form) {
  Reach(form, form.CloseWhileDisabled);
  loop_.Deliver([&form] { form.Form_Close(); });
}

}  // namespace vantora
