// Performs the same actions on the same form in both worlds: without a screen and with real
// widgets. The test compares the events that the handlers get, the order of the events, and the
// state of the controls after each action. There is no list of expected results: the two worlds
// have to agree.

#include "tests/backends/forms/worlds.h"

#include <random>

namespace vantora {
namespace {

std::string Narrow(const Text& text) {
  std::string narrow;
  for (const wchar_t c : text) narrow += c < 128 ? static_cast<char>(c) : '?';
  return narrow;
}

class Heard {
 public:
  Heard(FullForm& form, EventLoop& loop) : form_(form) {
    for (Control* control : form.Controls) Listen(*control);
    form.OnKey = [this](int key, bool control) {
      Say("key " + std::to_string(key) + (control ? "c" : ""));
      return key == kKeyF1;
    };
    form.imgButton.MouseDown = [this, &loop](int) {  // works until the button is released
      Say("down");
      let_ = false;
      for (int turns = 0; !let_ && turns < 100'000; ++turns) loop.DoEvents();
      Say(let_ ? "let" : "stuck");
    };
    form.imgButton.MouseUp = [this](int) { let_ = true; };
    form.picWave.KeyDown = [this](int key) { Say("picWave.KeyDown " + std::to_string(key)); };
    form.txtName.MaxLength = 4;
    form.lblTitle.TabStop = true;
    form.sldFader.Upwards = true;
    form.sldPan.Logarithmic = true;
    form.sldPan.Max = 10'000;
    form.picWide.Left = -24'000;
  }

  std::string Take() { return std::exchange(said_, {}); }

  // The state that hands can change.
  std::string State() const {
    std::string state;
    for (const Control* control : form_.Controls) {
      for (const wchar_t* property : {L"Text", L"Value", L"ListIndex", L"SelCount"}) {
        const auto value = control->Read(property);
        if (value) state += NameOf(*control) + "=" + Narrow(*value) + " ";
      }
      if (control->MouseX != 0) state += "@" + std::to_string(control->MouseX) + " ";
    }
    return state;
  }

 private:
  void Say(const std::string& what) { said_ += what + "; "; }
  static std::string NameOf(const Control& control) {
    return Narrow(control.Name) + (control.Index < 0 ? "" : std::to_string(control.Index));
  }

  void Listen(Control& control) {
    const std::string name = NameOf(control) + ".";
    const auto plain = [this, name](const std::string& what) {
      return [this, name, what] { Say(name + what); };
    };
    const auto numbered = [this, name](const std::string& what) {
      return [this, name, what](int n) { Say(name + what + " " + std::to_string(n)); };
    };
    const bool button = control.Kind() == ControlKind::PictureButton;
    if (control.Kind() == ControlKind::Timer || control.Kind() == ControlKind::Shape) return;
    if (&control == &form_.imgPicture) return;
    if (!button) control.MouseDown = numbered("MouseDown");
    if (!button || &control == &form_.imgPlain) control.DblClick = plain("DblClick");
    control.MouseUp = numbered("MouseUp");
    control.Click = plain("Click");
    control.GotFocus = plain("GotFocus");
    control.LostFocus = plain("LostFocus");
    control.KeyUp = numbered("KeyUp");
    if (control.Kind() != ControlKind::PictureBox) control.KeyDown = numbered("KeyDown");
    control.KeyPress = [this, name](int c) {
      Say(name + "KeyPress " + std::to_string(c));
      return c != 'x';
    };
    if (auto* box = dynamic_cast<TextBox*>(&control)) box->Change = plain("Change");
    if (auto* slider = dynamic_cast<Slider*>(&control)) slider->Change = plain("Change");
    if (auto* view = dynamic_cast<ListView*>(&control)) view->ItemClick = numbered("ItemClick");
  }

  FullForm& form_;
  std::string said_;
  bool let_ = true;
};

// An action of the hands on a form; `What` describes the action in words.
struct Deed {
  std::string What;
  std::function<void(Hands&, FullForm&)> Do;
};

std::vector<Deed> EveryDeed() {
  std::vector<Deed> deeds;
  const auto add = [&](const std::string& what, std::function<void(Hands&, FullForm&)> act) {
    deeds.push_back({what, std::move(act)});
  };
  const std::pair<const wchar_t*, int> pressed[] = {
      {L"lblTitle", -1},  {L"imgButton", -1}, {L"imgPlain", -1}, {L"txtName", -1},
      {L"txtNumber", -1}, {L"chkOn", -1},     {L"optPaper", 0},  {L"optPaper", 1},
      {L"optColour", 0},  {L"optColour", 1},  {L"picWave", -1},  {L"chkInside", -1}};
  for (const auto& [name, index] : pressed) {
    const auto find = [name = Text(name), index = index](FullForm& f) -> Control& {
      return *f.Find(name, index);
    };
    const std::string on = Narrow(name) + (index < 0 ? "" : std::to_string(index));
    add("press " + on, [find](Hands& h, FullForm& f) { h.Press(find(f)); });
    // imgButton works until it is released. It may get the second press of a double click before
    // the release or after it, so the worlds need not agree.
    if (Text(name) != L"imgButton") {
      add("double " + on, [find](Hands& h, FullForm& f) { h.DoubleClick(find(f)); });
    }
    add("right " + on, [find](Hands& h, FullForm& f) { h.RightClick(find(f)); });
  }
  add("right rows", [](Hands& h, FullForm& f) { h.RightClick(f.lvwTracks); });
  add("right lines", [](Hands& h, FullForm& f) { h.RightClick(f.lstMany); });
  for (const wchar_t* key :
       {L"Tab", L"Shift+Tab", L"Return", L"Space", L"Escape", L"Delete", L"Backspace", L"a", L"x",
        L"F1", L"F2", L"Ctrl+A", L"Up", L"Down", L"Home", L"End", L"PageUp", L"PageDown"}) {
    add("key " + Narrow(key), [key](Hands& h, FullForm& f) { h.Key(f, key); });
  }
  add("type", [](Hands& h, FullForm& f) { h.Type(f.txtName, L"bxc"); });
  for (const std::vector<int>& rows :
       {std::vector<int>{}, std::vector<int>{2}, std::vector<int>{1, 3}}) {
    const std::string many = std::to_string(rows.size());
    add("lines " + many, [rows](Hands& h, FullForm& f) { h.Select(f.lstMany, rows); });
    add("rows " + many, [rows](Hands& h, FullForm& f) { h.Select(f.lvwTracks, rows); });
    if (rows.size() > 1) continue;
    add("line " + many, [rows](Hands& h, FullForm& f) { h.Select(f.lstOne, rows); });
  }
  add("combo", [](Hands& h, FullForm& f) { h.Select(f.cboGenre, {3}); });
  add("pan", [](Hands& h, FullForm& f) { h.Drag(f.sldPan, 100, 700); });
  add("fader", [](Hands& h, FullForm& f) { h.PressAt(f.sldFader, 300); });
  add("knob", [](Hands& h, FullForm& f) { h.Drag(f.knob, 100, 600); });
  add("draw", [](Hands& h, FullForm& f) { h.Drag(f.picWave, 100, 1200); });
  add("twice", [](Hands& h, FullForm& f) { h.DoubleClickAt(f.picWide, 520); });
  add("too far", [](Hands& h, FullForm& f) { h.Drag(f.picWide, 0, 500); });
  add("wide", [](Hands& h, FullForm& f) { h.Drag(f.picWide, 510, 530); });
  add("middle", [](Hands& h, FullForm& f) { h.Press(f.picWide); });
  add("pull", [](Hands& h, FullForm& f) { h.Pull(f.lblTitle, 300, 30); });
  add("shift", [](Hands& h, FullForm& f) { h.ShiftPress(f.lblTitle); });
  add("hold", [](Hands& h, FullForm& f) { h.Hold(f.imgButton, 60); });
  add("close", [](Hands& h, FullForm& f) { h.Close(f); });
  add("off", [](Hands&, FullForm& f) { f.chkOn.Enabled = !f.chkOn.Enabled; });
  add("box off", [](Hands&, FullForm& f) { f.shpBox.Enabled = !f.shpBox.Enabled; });
  add("away", [](Hands&, FullForm& f) { f.txtName.Visible = !f.txtName.Visible; });
  return deeds;
}

// Performs the deeds in a world. Returns a line for each deed: its events and the state after it.
std::vector<std::string> Play(const std::unique_ptr<TestWorld>& world,
                              const std::vector<Deed>& deeds) {
  FullForm form(world->Loop());
  Heard heard(form, world->Loop());
  form.FirstFocus = deeds.size() % 2 == 0;
  std::vector<std::string> lines;
  Person person;
  const auto note = [&](const std::string& what) {
    std::string log;
    for (const std::string& own : std::exchange(form.Log, {})) log += own + "; ";
    lines.push_back(what + ": " + log + heard.Take() + "| " + heard.State());
  };
  std::string last = "show";
  for (const Deed& deed : deeds) {
    person.Then([&, deed] {
      note(last);
      last = deed.What;
      try {
        deed.Do(world->TheHands(), form);
      } catch (const Unreachable&) {
        last += " (refused)";
      }
    });
    person.Then([] {});
    if (deed.What == "hold") person.Then([&] { world->Loop().Sleep(100); }).Then([] {});
  }
  person.Then([&] { note(last); });
  world->Loop().TheUser = &person;
  world->Loop().Show(form);
  world->Loop().Run();
  return lines;
}

}  // namespace

TEST(Agreement, BothWorldsReportTheSameOfEveryDeed) {
  const std::vector<Deed> all = EveryDeed();
  std::mt19937 random(20261126);
  for (int round = 0; round < 12; ++round) {
    std::vector<Deed> deeds = all;
    if (round > 0) std::shuffle(deeds.begin(), deeds.end(), random);
    if (round > 6) deeds.pop_back();  // an odd number of deeds: no control has the focus at first
    const auto headless = Play(MakeWorldWithoutScreen(), deeds),
               windows = Play(MakeWorldWithWidgets(), deeds);
    ASSERT_EQ(headless.size(), windows.size());
    for (std::size_t i = 0; i < headless.size(); ++i) {
      ASSERT_EQ(headless[i], windows[i])
          << "round " << round << ", after " << (i > 0 ? windows[i - 1] : "");
    }
  }
}

}  // namespace vantora
