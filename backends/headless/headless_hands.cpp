// The mouse of the hands without a screen.

#include "backends/headless/headless_hands.h"

#include "backends/headless/refusal.h"

#include "platform/fader_knob.h"
#include "platform/slider_scale.h"
#include "platform/twips.h"

#include <algorithm>

namespace vantora {

namespace {

// The part of a control that lies between the edges of all that it lies in; twips from its corner.
struct Area {
  int Left, Top, Right, Bottom;

  bool Has(int x, int y) const { return x >= Left && x < Right && y >= Top && y < Bottom; }
};

Area SeenOf(const Control& control) {
  Area seen{0, 0, control.Width, control.Height};
  int x = 0, y = 0;
  for (const Control* inner = &control; inner->Container != nullptr; inner = inner->Container) {
    const Control& outer = *inner->Container;
    x += inner->Left;
    y += inner->Top;
    seen = {std::max(seen.Left, -x), std::max(seen.Top, -y), std::min(seen.Right, outer.Width - x),
            std::min(seen.Bottom, outer.Height - y)};
  }
  return seen;
}

int OnPixel(int twips) {
  return twips - twips % kTwipsPerPixel;
}

// What the press and the release at two places, in thousandths, make of a slider's value. Where the
// knob is gripped off its middle, it keeps its distance from the mouse.
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

void CheckRows(const Control& control, const std::vector<int>& rows, int count) {
  for (const int row : rows) {
    if (row >= 1 && row <= count) continue;
    Refuse(NameOf(control) + " has no row " + std::to_string(row) + ", it has " +
           std::to_string(count));
  }
}

}  // namespace

// ---- what can be reached ----

void HeadlessHands::Reach(Form& form, bool evenDisabled) {
  const std::string name = Narrow(form.Name);
  if (!form.Visible()) Refuse(name + " is not shown");
  if (!loop_.Reachable(form)) {
    const Form* front = loop_.Front();
    Refuse(name + " cannot be reached behind " + (front ? Narrow(front->Name) : "another window"));
  }
  if (!form.Window.Enabled && !evenDisabled) Refuse(name + " is disabled");
  loop_.BringForward(form);
}

void HeadlessHands::Reach(Control& control) {
  if (!loop_.Alive(control)) Refuse("the control is gone");
  Reach(control.Owner());
  if (control.Kind() == ControlKind::Timer) Refuse(NameOf(control) + " cannot be seen");
  if (!control.InSight()) Refuse(NameOf(control) + " is hidden");
  if (!control.InUse()) Refuse(NameOf(control) + " is disabled");
  const Area seen = SeenOf(control);
  if (control.Container != nullptr && !seen.Has(seen.Left, seen.Top)) {
    Refuse(NameOf(control) + " lies out of sight");
  }
  if (loop_.OpenMenu(control.Owner()) != nullptr) loop_.CloseMenu();  // a click beside it
}

// A handler may have closed the window, or covered or disabled the control.
bool HeadlessHands::Still(const Control& control) const {
  return loop_.Alive(control) && loop_.Reachable(control.Owner()) && control.InSight() &&
         control.InUse() && !loop_.Ended();
}

void HeadlessHands::Call(Control& control, const std::function<void()>& handler) {
  // A copy runs: a handler that destroys its own form must not destroy itself.
  if (handler && Still(control)) loop_.Deliver(std::function<void()>(handler));
}

// ---- the mouse ----

void HeadlessHands::Press(Control& control) {
  Reach(control);
  PointAtMiddle(control);
  MouseButton(control, kLeftButton);
}

void HeadlessHands::RightClick(Control& control) {
  Reach(control);
  PointAtMiddle(control);
  MouseButton(control, kRightButton);
}

void HeadlessHands::DoubleClick(Control& control) {
  Press(control);
  SecondPress(control);
}

void HeadlessHands::PressAt(Control& control, int at) {
  if (control.Kind() == ControlKind::Slider) return Drag(control, at, at);
  Reach(control);
  Point(control, at);
  MouseButton(control, kLeftButton);
}

void HeadlessHands::DoubleClickAt(Control& control, int at) {
  PressAt(control, at);
  SecondPress(control);
}

// A double click stands in the place of the second press, and has a release as every press has.
void HeadlessHands::SecondPress(Control& control) {
  if (!Still(control)) return;
  Call(control, control.DblClick);
  const bool drawn =
      control.Kind() == ControlKind::PictureBox || control.Kind() == ControlKind::PictureButton;
  if (drawn && control.DblClick && Still(control)) Up(control, kLeftButton);
}

void HeadlessHands::Point(Control& control, int at) {
  auto* box = dynamic_cast<PictureBox*>(&control);
  if (box == nullptr) return;
  const int x = OnPixel(std::min(box->Width * at / 1000, box->Width - 1));
  const int y = OnPixel(box->Height / 2);
  if (box->Container != nullptr && !SeenOf(*box).Has(x, y)) {
    Refuse(NameOf(control) + " cannot be reached at " + std::to_string(at) + ": out of sight");
  }
  box->MouseX = x;
  box->MouseY = y;
}

// At the middle of what is seen of it, when its own is not.
void HeadlessHands::PointAtMiddle(Control& control) {
  auto* box = dynamic_cast<PictureBox*>(&control);
  if (box == nullptr) return;
  const Area seen = SeenOf(*box);
  box->MouseX = OnPixel(box->Width / 2);
  box->MouseY = OnPixel(box->Height / 2);
  if (box->Container == nullptr || seen.Has(box->MouseX, box->MouseY)) return;
  box->MouseX = OnPixel((seen.Left + seen.Right) / 2);
  box->MouseY = OnPixel((seen.Top + seen.Bottom) / 2);
}

void HeadlessHands::MouseButton(Control& control, int button) {
  if (button == kLeftButton && control.Kind() == ControlKind::PictureButton && control.MouseDown) {
    return KeepDown(control, 0);  // its handler may turn until the button is let go
  }
  Down(control, button);
  if (button == kLeftButton && Still(control)) {
    if (auto* check = dynamic_cast<CheckBox*>(&control)) {
      check->Value = check->Value() == 0 ? 1 : 0;
    } else if (auto* option = dynamic_cast<OptionButton*>(&control)) {
      option->SetValue(true);
    }
  }
  if (!Still(control)) return;
  Up(control, button);
  if (button == kLeftButton && Still(control)) Call(control, control.Click);
}

// Buttons drawn from pictures take the focus by the keyboard alone: a click ends no typing.
void HeadlessHands::Down(Control& control, int button) {
  control.ShiftHeld = shift_;
  control.ControlHeld = false;
  if (control.Kind() != ControlKind::PictureButton) loop_.SetFocus(control);
  if (auto* picture = dynamic_cast<PictureButton*>(&control)) {
    Call(control, [picture, button] { vantora::Press(*picture, button); });
  } else if (const auto down = control.MouseDown) {
    Call(control, [&] { down(button); });
  }
}

void HeadlessHands::Up(Control& control, int button) {
  if (auto* picture = dynamic_cast<PictureButton*>(&control)) {
    Call(control, [picture, button] { vantora::Release(*picture, button); });
  } else if (const auto up = control.MouseUp) {
    Call(control, [&] { up(button); });
  }
}

// The program may turn in the handler of the press until the release has come, so that is on its
// way before.
void HeadlessHands::Hold(Control& control, int ms) {
  Reach(control);
  PointAtMiddle(control);
  KeepDown(control, ms);
}

// The release is on its way before the press.
void HeadlessHands::KeepDown(Control& control, int ms) {
  ++held_;
  const int others = held_ - 1;
  loop_.PostAfter(ms, [this, &control] {
    --held_;
    if (!Still(control)) return;
    Up(control, kLeftButton);
    if (Still(control)) Call(control, control.Click);
  });
  Down(control, kLeftButton);
  while (held_ > others && !loop_.Ended()) loop_.Pass(1);
}

void HeadlessHands::Drag(Control& control, int from, int to) {
  Reach(control);
  if (auto* box = dynamic_cast<PictureBox*>(&control)) return DragOnPicture(*box, from, to);
  auto* slider = dynamic_cast<Slider*>(&control);
  if (slider == nullptr) {
    MouseButton(control, kLeftButton);
    return;
  }
  loop_.SetFocus(control);
  if (slider->MouseDown) Call(control, [slider] { slider->MouseDown(kLeftButton); });
  for (const int value : ValuesOfDrag(*slider, from, to)) {
    if (!Still(control)) return;
    SetSlider(*slider, value);
  }
  if (Still(control) && slider->MouseUp) {
    Call(control, [slider] { slider->MouseUp(kLeftButton); });
  }
}

// Beyond the edges too, as a mouse that is held goes there.
void HeadlessHands::DragOnPicture(PictureBox& box, int from, int to) {
  constexpr int kMoves = 4;
  Point(box, from);
  const int start = box.MouseX, end = OnPixel(box.Width * to / 1000);
  const int left = box.Left;  // the box may follow the mouse
  Down(box, kLeftButton);
  for (int i = 1; i <= kMoves && Still(box); ++i) {
    box.MouseX = OnPixel(start + (end - start) * i / kMoves) + left - box.Left;
    if (const auto move = box.MouseMove) Call(box, [&] { move(kLeftButton); });
  }
  if (!Still(box)) return;
  Up(box, kLeftButton);
  if (Still(box)) Call(box, box.Click);
}

// The label may follow the mouse, so the places are those of what it lies in.
void HeadlessHands::Pull(Control& control, int x, int y) {
  constexpr int kMoves = 4;
  Reach(control);
  control.MouseX = OnPixel(control.Width / 2);
  control.MouseY = OnPixel(control.Height / 2);
  const int startX = control.Left + control.MouseX, startY = control.Top + control.MouseY;
  Down(control, kLeftButton);
  for (int i = 1; i <= kMoves && Still(control); ++i) {
    control.MouseX = OnPixel(startX + x * i / kMoves) - control.Left;
    control.MouseY = OnPixel(startY + y * i / kMoves) - control.Top;
    if (const auto move = control.MouseMove) Call(control, [&] { move(kLeftButton); });
  }
  if (Still(control)) Up(control, kLeftButton);
}

void HeadlessHands::ShiftPress(Control& control) {
  Reach(control);
  PointAtMiddle(control);
  shift_ = true;
  MouseButton(control, kLeftButton);
  shift_ = false;
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
  if (list == nullptr || !list->OLEDragDrop) Refuse(NameOf(control) + " takes no files");
  bool taken = true;
  if (list->OLEDragOver) Call(control, [&] { taken = list->OLEDragOver(files); });
  if (taken && Still(control)) Call(control, [drop = list->OLEDragDrop, files] { drop(files); });
}

// ---- lists ----

void HeadlessHands::Select(Control& control, const std::vector<int>& rows) {
  Reach(control);
  loop_.SetFocus(control);
  if (auto* view = dynamic_cast<ListView*>(&control)) return SelectInView(*view, rows);
  if (auto* combo = dynamic_cast<ComboBox*>(&control)) return SelectInCombo(*combo, rows);
  if (auto* box = dynamic_cast<ListBox*>(&control)) return SelectInBox(*box, rows);
  Refuse(NameOf(control) + " has no rows");
}

// A click on the first row leaves it alone selected; the others are clicked with Ctrl held.
void HeadlessHands::SelectInBox(ListBox& list, const std::vector<int>& rows) {
  CheckRows(list, rows, list.ListCount());
  if (rows.size() > 1 && !list.MultiSelect) Refuse(NameOf(list) + " takes one row only");
  if (rows.empty()) {
    for (int i = 0; i < list.ListCount(); ++i) list.Select(i, false);
    if (!list.MultiSelect) list.ListIndex = -1;
    return;
  }
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (!Still(list)) return;
    if (rows[i] > list.ListCount()) return;  // the handler of an earlier row made the list shorter
    if (list.MultiSelect && i == 0) {
      for (int other = 0; other < list.ListCount(); ++other) list.Select(other, false);
    }
    list.Select(rows[i] - 1, true);
    Call(list, list.Click);
  }
}

void HeadlessHands::SelectInCombo(ComboBox& list, const std::vector<int>& rows) {
  CheckRows(list, rows, list.ListCount());
  if (rows.size() != 1) Refuse(NameOf(list) + " takes exactly one row");
  list.ListIndex = rows.front() - 1;
  Call(list, list.Click);
}

void HeadlessHands::SelectInView(ListView& list, const std::vector<int>& rows) {
  CheckRows(list, rows, list.ListItems.Count());
  for (int row = 1; row <= list.ListItems.Count(); ++row) {
    list.ListItems(row).SetSelected(std::find(rows.begin(), rows.end(), row) != rows.end());
  }
  if (!rows.empty() && list.ItemClick) {
    Call(list, [click = list.ItemClick, row = rows.back()] { click(row); });
  }
  if (Still(list)) Call(list, list.Click);
}

// ---- menus and windows ----

void HeadlessHands::ChooseMenu(Form& form, const Text& item) {
  Reach(form);
  Menu* menu = loop_.OpenMenu(form);
  if (menu == nullptr) Refuse(Narrow(form.Name) + " has no menu open");
  for (const MenuItem& entry : menu->Items) {
    if (entry.Name != item && entry.Caption != item) continue;
    if (!entry.Enabled) Refuse("the menu's " + Narrow(item) + " is disabled");
    const std::function<void()> click = entry.Click;
    loop_.CloseMenu();
    if (click) loop_.Deliver(click);
    return;
  }
  Refuse("the open menu has no " + Narrow(item));
}

void HeadlessHands::Close(Form& form) {
  Reach(form, form.CloseWhileDisabled);
  loop_.Deliver([&form] { form.Form_Close(); });
}

}  // namespace vantora
