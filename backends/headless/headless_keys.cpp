// The keyboard of the hands without a screen.

#include "backends/headless/headless_hands.h"
#include "backends/headless/refusal.h"

#include "platform/slider_scale.h"

#include <algorithm>
#include <map>
#include <utility>

namespace vantora {

namespace {

const std::map<Text, int>& NamedKeys() {
  static const std::map<Text, int> kKeys = {
      {L"Return", kKeyReturn}, {L"Escape", kKeyEscape},    {L"Delete", kKeyDelete},
      {L"Space", kKeySpace},   {L"Tab", kKeyTab},          {L"Backspace", kKeyBackspace},
      {L"Up", kKeyUp},         {L"Down", kKeyDown},        {L"Left", kKeyLeft},
      {L"Right", kKeyRight},   {L"Home", kKeyHome},        {L"End", kKeyEnd},
      {L"PageUp", kKeyPageUp}, {L"PageDown", kKeyPageDown}};
  return kKeys;
}

bool IsLetter(wchar_t c) {
  return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z');
}

// Code of the key that writes a character; other keys than letters and digits have none, as their
// characters' codes are those of Delete and its neighbours.
int CodeOf(wchar_t c) {
  if (c >= L'a' && c <= L'z') return c - L'a' + L'A';
  if (IsLetter(c) || (c >= L'0' && c <= L'9') || c == L' ') return c;
  return 0;
}

}  // namespace

HeadlessHands::Stroke HeadlessHands::ParseKey(const Text& key) {
  Stroke stroke;
  Text name = key;
  while (true) {
    if (name.starts_with(L"Ctrl+")) {
      stroke.Control = true;
      name.erase(0, 5);
    } else if (name.starts_with(L"Shift+")) {
      stroke.Shift = true;
      name.erase(0, 6);
    } else {
      break;
    }
  }
  const auto named = NamedKeys().find(name);
  if (named != NamedKeys().end()) {
    stroke.Code = named->second;
    const bool writes = stroke.Code == kKeyReturn || stroke.Code == kKeyEscape ||
                        stroke.Code == kKeySpace || stroke.Code == kKeyBackspace;
    if (writes && !stroke.Control) stroke.Character = stroke.Code;
    return stroke;
  }
  if (name.size() == 1 && CodeOf(name[0]) != 0) {
    stroke.Code = CodeOf(name[0]);
    const bool small = IsLetter(name[0]) && !stroke.Shift;
    stroke.Character = stroke.Control ? 0 : stroke.Code + (small ? 'a' - 'A' : 0);
    return stroke;
  }
  for (int number = 1; number <= 12; ++number) {
    if (name != L"F" + std::to_wstring(number)) continue;
    stroke.Code = kKeyF1 + number - 1;
    return stroke;
  }
  Refuse("there is no key " + Narrow(key));
}

void HeadlessHands::Key(Form& form, const Text& key) {
  const Stroke stroke = ParseKey(key);
  const bool escapes = stroke.Code == kKeyEscape && form.EscapeWhileDisabled;
  Reach(form, escapes);
  if (!form.Window.Enabled) {
    loop_.Deliver([&] { form.Form_KeyDown(kKeyEscape, false); });
    return;
  }
  if (stroke.Code == kKeyEscape && loop_.OpenMenu(form) != nullptr) {
    loop_.CloseMenu();
    return;
  }
  Send(form, stroke);
}

void HeadlessHands::Send(Form& form, const Stroke& stroke) {
  bool used = false;
  if (stroke.Code != 0) {
    used = true;  // a handler that fails has used it
    loop_.Deliver([&] { used = form.Form_KeyDown(stroke.Code, stroke.Control); });
  }
  if (!used) SendToFocus(form, stroke);
  const auto& forms = loop_.Forms();
  const bool there = std::find(forms.begin(), forms.end(), &form) != forms.end();
  if (stroke.Code != 0 && there) loop_.Deliver([&] { form.Form_KeyUp(stroke.Code); });
}

void HeadlessHands::SendToFocus(Form& form, const Stroke& stroke) {
  Control* control = loop_.Focus(form);
  if (control == nullptr && stroke.Code == kKeyTab && loop_.Reachable(form)) {
    return MoveFocus(form, stroke.Shift);
  }
  if (control == nullptr || !Still(*control)) return;
  const auto through = [&](const std::function<void(int)>& handler) {
    return handler ? [handler, code = stroke.Code] { handler(code); } : std::function<void()>();
  };
  control->ShiftHeld = stroke.Shift;
  control->ControlHeld = stroke.Control;
  if (stroke.Code != 0) Call(*control, through(control->KeyDown));
  if (!Still(*control)) return;
  bool wanted = true;
  if (stroke.Character != 0 && control->KeyPress) {
    const auto press = control->KeyPress;
    Call(*control, [&] { wanted = press(stroke.Character); });
  }
  if (wanted && Still(*control)) Effect(*control, stroke);
  if (stroke.Code != 0 && loop_.Alive(*control)) Call(*control, through(control->KeyUp));
}

// What the kind of control makes of a key by itself.
void HeadlessHands::Effect(Control& control, const Stroke& stroke) {
  if (stroke.Code == kKeyTab) return MoveFocus(control.Owner(), stroke.Shift);
  const bool space = stroke.Code == kKeySpace && !stroke.Control;
  switch (control.Kind()) {
    case ControlKind::TextBox:
      return TypeInto(static_cast<TextBox&>(control), stroke);
    case ControlKind::Label:
      if (space || stroke.Code == kKeyReturn) {
        Call(control, control.Click ? control.Click : control.DblClick);
      }
      return;
    case ControlKind::PictureButton:
      if (space || stroke.Code == kKeyReturn) MouseButton(control, kLeftButton);
      return;
    case ControlKind::CheckBox:
      if (space) MouseButton(control, kLeftButton);
      return;
    case ControlKind::OptionButton:
      if (space) return MouseButton(control, kLeftButton);
      return MoveOption(static_cast<OptionButton&>(control), stroke.Code);
    case ControlKind::ComboBox:
    case ControlKind::ListBox:
      return MoveInList(static_cast<ListControl&>(control), stroke.Code);
    case ControlKind::ListView:
      return MoveInView(static_cast<ListView&>(control), stroke);
    case ControlKind::Slider:
      return MoveSlider(static_cast<Slider&>(control), stroke.Code);
    default:
      return;
  }
}

void HeadlessHands::MoveFocus(Form& form, bool back) {
  std::vector<Control*> chain;
  for (Control* control : form.Controls) {
    if (HeadlessLoop::TakesFocus(*control) && control->InSight() && control->InUse()) {
      chain.push_back(control);
    }
  }
  if (chain.empty()) return;
  std::stable_sort(chain.begin(), chain.end(),
                   [](const Control* a, const Control* b) { return a->TabIndex < b->TabIndex; });
  if (back) std::reverse(chain.begin(), chain.end());
  auto place = std::find(chain.begin(), chain.end(), loop_.Focus(form));
  if (place != chain.end()) ++place;
  Control& next = place == chain.end() ? *chain.front() : **place;
  loop_.SetFocus(next);
  const auto* box = dynamic_cast<TextBox*>(&next);
  marked_ = box != nullptr && box->SelectOnFocus ? box : nullptr;
}

void HeadlessHands::Type(Control& control, const Text& text) {
  auto* box = dynamic_cast<TextBox*>(&control);
  if (box == nullptr) Refuse(NameOf(control) + " takes no text");
  Reach(control);
  Form& form = control.Owner();
  MouseButton(control, kLeftButton);
  if (!Still(control)) return;
  if (!box->Text().empty()) {
    marked_ = box;
    Send(form, ParseKey(L"Delete"));
  }
  for (const wchar_t c : text) {
    // What a handler does to the focus takes the rest of the text with it, as on a screen.
    if (loop_.Ended() || !loop_.Reachable(form)) return;
    Stroke stroke;
    stroke.Code = c == L'\n' ? kKeyReturn : CodeOf(c);
    stroke.Character = static_cast<int>(std::char_traits<wchar_t>::to_int_type(c));
    Send(form, stroke);
  }
}

constexpr const wchar_t* kLineEnd = L"\r\n";

// The cursor stands behind the last character; Home and Left are not needed by anyone here.
void HeadlessHands::TypeInto(TextBox& box, const Stroke& stroke) {
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
  } else if (stroke.Character >= 32) {
    if (marked) text.clear();
    const auto limit = static_cast<std::size_t>(std::max(box.MaxLength(), 0));
    if (limit == 0 || text.size() < limit) text += static_cast<wchar_t>(stroke.Character);
  }
  if (text == box.Text()) return;
  box.Text = text;
  Call(box, box.Change);
}

namespace {

// Where a key moves a place between `first` and `last`.
int Moved(int place, int key, int page, int first, int last) {
  switch (key) {
    case kKeyUp:
    case kKeyLeft:
      place -= 1;
      break;
    case kKeyDown:
    case kKeyRight:
      place += 1;
      break;
    case kKeyPageUp:
      place -= page;
      break;
    case kKeyPageDown:
      place += page;
      break;
    case kKeyHome:
      place = first;
      break;
    case kKeyEnd:
      place = last;
      break;
    default:
      return place;
  }
  return std::clamp(place, first, last);
}

constexpr int kPageRows = 10;

}  // namespace

void HeadlessHands::MoveInList(ListControl& list, int key) {
  if (list.ListCount() == 0) return;
  const int row = Moved(list.ListIndex, key, kPageRows, 0, list.ListCount() - 1);
  if (row == list.ListIndex()) return;
  if (auto* box = dynamic_cast<ListBox*>(&list); box != nullptr && box->MultiSelect) {
    for (int i = 0; i < box->ListCount(); ++i) box->Select(i, false);
    box->Select(row, true);
  } else {
    list.ListIndex = row;
  }
  Call(list, list.Click);
}

void HeadlessHands::MoveInView(ListView& list, const Stroke& stroke) {
  const int count = list.ListItems.Count();
  if (count == 0) return;
  if (stroke.Control && stroke.Code == 'A') {
    for (int row = 1; row <= count; ++row) list.ListItems(row).SetSelected(true);
    return;
  }
  int present = 0;
  for (int row = 1; row <= count && present == 0; ++row) {
    if (list.ListItems(row).Selected()) present = row;
  }
  const int row = Moved(present, stroke.Code, kPageRows, 1, count);
  if (row != present) SelectInView(list, {row});
}

// Up means more, but where the minimum is at the top.
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

void HeadlessHands::MoveOption(OptionButton& option, int key) {
  const bool forward = key == kKeyDown || key == kKeyRight;
  if (!forward && key != kKeyUp && key != kKeyLeft) return;
  std::vector<OptionButton*> group;
  for (Control* control : option.Owner().Controls) {
    auto* other = dynamic_cast<OptionButton*>(control);
    if (other == nullptr || other->Group() != option.Group()) continue;
    if (other->InSight() && other->InUse()) group.push_back(other);
  }
  const auto place = std::find(group.begin(), group.end(), &option);
  const auto at = static_cast<std::size_t>(place - group.begin());
  const std::size_t step = forward ? 1 : group.size() - 1;
  MouseButton(*group[(at + step) % group.size()], kLeftButton);
}

}  // namespace vantora
