// A form with every kind of control, and a simulated user who performs one action after another.
// The desktop's loop and the headless loop are tested with the same form.
#pragma once

#include "platform/event_loop.h"
#include "platform/fader_knob.h"

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

namespace vantora {

inline void Place(Control& control, int left, int top, int width, int height) {
  control.Left = left;
  control.Top = top;
  control.Width = width;
  control.Height = height;
}

// Returns the reason why the loop or the hands refuse an action; blank when they accept it.
inline std::string Refusal(const std::function<void()>& act) {
  try {
    act();
  } catch (const std::exception& refused) {
    return refused.what();
  }
  return {};
}

class TestForm : public Form {
 public:
  explicit TestForm(EventLoop& loop, const Text& name = L"frmTest") : Form(loop, name) {
    Place(Window, 0, 0, 9000, 7500);
    Caption = L"Prueba";
  }

  std::vector<std::string> Log;  // the events in order
  std::function<bool(int key, bool control)> OnKey;
  std::function<void()> OnClose;

  void Form_Activate() override { Log.emplace_back("activate"); }
  void Form_GotFocus() override { Log.emplace_back("gotfocus"); }
  // Handlers are copied before they run, since some tests destroy the form in them.
  bool Form_KeyDown(int key, bool control) override {
    const auto act = OnKey;
    return act && act(key, control);
  }
  void Form_Close() override {
    Log.emplace_back("close");
    if (const auto act = OnClose) act();
  }
  int Count(const std::string& what) const {
    return static_cast<int>(std::count(Log.begin(), Log.end(), what));
  }
  std::function<void()> Note(const std::string& what) {
    return [this, what] { Log.push_back(what); };
  }
};

class FullForm final : public TestForm {
 public:
  explicit FullForm(EventLoop& loop);

  Shape shpPanel{*this, L"shpPanel"};
  Label lblTitle{*this, L"lblTitle"};
  PictureButton imgPicture{*this, L"imgPicture"};
  PictureButton imgButton{*this, L"imgButton"};
  PictureButton imgPlain{*this, L"imgPlain"};
  TextBox txtName{*this, L"txtName"};
  TextBox txtNumber{*this, L"txtNumber"};
  CheckBox chkOn{*this, L"chkOn"};
  ControlArray<OptionButton, 2> optPaper{*this, L"optPaper", 1};
  ControlArray<OptionButton, 2> optColour{*this, L"optColour", 2};
  ComboBox cboGenre{*this, L"cboGenre"};
  ListBox lstOne{*this, L"lstOne"};
  ListBox lstMany{*this, L"lstMany"};
  ListView lvwTracks{*this, L"lvwTracks"};
  Slider sldPan{*this, L"sldPan"};
  Slider sldFader{*this, L"sldFader"};
  FaderKnob knob{*this, L"knob"};
  PictureBox picWave{*this, L"picWave"};
  LevelMeter Level{*this, L"Level"};
  PictureBox picView{*this, L"picView"};  // shows a sixteenth of its drawing
  PictureBox picWide{*this, L"picWide"};
  Shape shpMark{*this, L"shpMark"};
  Shape shpBox{*this, L"shpBox"};
  CheckBox chkInside{*this, L"chkInside"};
  Timer tmrTick{*this, L"tmrTick"};
};

// Performs the next step whenever the loop waits for its user.
class Person final : public User {
 public:
  using Step = std::function<void()>;
  Person& Then(Step step) {
    steps_.push_back(std::move(step));
    return *this;
  }
  bool Act(Form* front) override {
    Front = front;
    if (next_ == steps_.size()) return false;
    const Step step = steps_[next_++];
    step();
    return true;
  }
  bool Done() const { return next_ == steps_.size(); }
  Form* Front = nullptr;

 private:
  std::vector<Step> steps_;
  std::size_t next_ = 0;
};

inline FullForm::FullForm(EventLoop& loop) : TestForm(loop) {
  Place(shpPanel, 0, 0, 9000, 600);
  Place(lblTitle, 150, 150, 3000, 300);
  lblTitle.Caption = L"Título";
  Place(imgPicture, 3300, 60, 480, 480);
  Place(imgButton, 150, 750, 1200, 450);
  imgButton.AccessibleName = L"Aceptar";
  imgButton.MouseUp = [this](int button) { Log.push_back("button " + std::to_string(button)); };
  Place(imgPlain, 1500, 750, 1200, 450);
  imgPlain.AccessibleName = L"Cancelar";
  imgPlain.MouseUp = [this](int) { Log.emplace_back("plain"); };
  Place(txtName, 150, 1350, 2400, 345);
  Place(txtNumber, 2700, 1350, 1200, 345);
  Place(chkOn, 150, 1800, 2400, 300);
  chkOn.Caption = L"&Siempre";
  chkOn.Click = Note("check");
  for (int i = 0; i < 2; ++i) {
    Place(optPaper(i), 150, 2200 + 300 * i, 1800, 285);
    Place(optColour(i), 2100, 2200 + 300 * i, 1800, 285);
  }
  Place(cboGenre, 150, 2900, 2400, 345);
  for (const wchar_t* genre : {L"Rock", L"Jazz", L"Clásica"}) cboGenre.AddItem(genre);
  Place(lstOne, 150, 3400, 1800, 1500);
  Place(lstMany, 2100, 3400, 1800, 1500);
  lstMany.MultiSelect = true;
  for (int i = 1; i <= 5; ++i) {
    lstOne.AddItem(L"uno " + std::to_wstring(i));
    lstMany.AddItem(L"muchos " + std::to_wstring(i));
  }
  Place(lvwTracks, 4200, 750, 4500, 3000);
  lvwTracks.SetColumns({{L"Nº", 600}, {L"Título", 2400}});
  for (int row = 1; row <= 4; ++row) {
    ListItem& item = lvwTracks.ListItems.Add();
    item.SetSubItems(0, std::to_wstring(row));
    item.SetSubItems(1, L"Canción " + std::to_wstring(row));
  }
  Place(sldPan, 4200, 3900, 3000, 330);
  Place(sldFader, 8400, 3900, 330, 3000);
  sldFader.Vertical = true;
  Place(knob, 7500, 3900, 600, 3000);
  knob.AccessibleName = L"Volumen";
  Place(picWave, 4200, 4400, 3000, 1200);
  Place(Level, 4200, 5700, 3000, 360);
  Place(picView, 150, 5100, 3000, 600);
  Place(picWide, 0, 0, 48000, 600);
  picWide.Container = &picView;
  Place(shpMark, 0, 0, 48000, 600);
  shpMark.Container = &picWide;
  Place(shpBox, 150, 6000, 3000, 900);
  Place(chkInside, 300, 300, 1500, 300);
  chkInside.Container = &shpBox;
  int tab = 0;
  for (Control* control : Controls) control->TabIndex = tab++;
}

}  // namespace vantora
