// Hands without a screen. They change the controls and call the handlers in the same order as real
// widgets. Every action is complete when the call returns; a handler that opens a modal window
// keeps the call until that window has closed.
#pragma once

#include "backends/forms/keys.h"
#include "backends/headless/headless_loop.h"

#include "platform/hands.h"

#include <map>

namespace vantora {

class HeadlessHands final : public Hands {
 public:
  explicit HeadlessHands(HeadlessLoop& loop) : loop_(loop) {}

  void Press(Control& control) override;
  void DoubleClick(Control& control) override;
  void RightClick(Control& control) override;
  void PressAt(Control& control, int at) override;
  void DoubleClickAt(Control& control, int at) override;
  // A slider takes the value at the place of the mouse. A vertical slider is dragged along its
  // height.
  void Drag(Control& control, int from, int to) override;
  void Pull(Control& control, int x, int y) override;
  void ShiftPress(Control& control) override;
  void Hold(Control& control, int ms) override;
  bool Holding() const override { return held_ > 0; }
  void Type(Control& control, const Text& text) override;
  void Select(Control& control, const std::vector<int>& rows) override;
  void Key(Form& form, const Text& key) override;
  void ChooseMenu(Form& form, const Text& item) override;
  void Close(Form& form) override;
  void Drop(Control& control, const std::vector<Text>& files) override;
  bool Shot(Form& /*form*/, const std::string& /*file*/) override { return false; }

 private:
  void Reach(Form& form, bool evenDisabled = false);
  void Reach(Control& control);
  void Call(Control& control, const std::function<void()>& handler);
  void CallMouse(Control& control, std::function<void(int)> Control::*handler, int button);

  // The mouse.
  void Click(Control& control, int button);
  void Twice(Control& control);
  void KeepDown(Control& control, int ms, int button);
  void Down(Control& control, int button);
  void Up(Control& control, int button, bool inside);
  void Own(Control& control);
  void Point(Control& control, int at);
  void PointAtMiddle(Control& control);
  void MoveTo(Control& control, int x, int y);
  void DragOnPicture(PictureBox& box, int from, int to);
  void SetSlider(Slider& slider, int value);

  // Lists.
  void ClickRow(Control& control, int row, bool toggles);
  void SelectRow(Control& control, int row, bool toggles);
  int PresentRow(const Control& control) const;

  // The keyboard.
  void Strike(Form& form, const KeyStroke& stroke);
  void Effect(Control& control, const KeyStroke& stroke);
  void LetGo(Control& control, int key);
  void TypeInto(TextBox& box, const KeyStroke& stroke);
  void MoveInList(ListControl& list, const KeyStroke& stroke);
  void MoveInView(ListView& list, const KeyStroke& stroke);
  void MoveSlider(Slider& slider, int key);
  void MoveOption(OptionButton& option, int key);
  void WalkOn(Form& form, int key);
  void MoveFocus(Form& form, bool back);

  HeadlessLoop& loop_;
  bool shift_ = false;                     // held while the mouse presses
  int held_ = 0;                           // number of held controls that are not released yet
  int row_ = 0;                            // the row of a list under the mouse; 0 for none
  std::map<const Control*, int> current_;  // the current row of each list
  const Control* marked_ = nullptr;        // the text box whose whole text is selected
  const Control* keyHeld_ = nullptr;       // the button that the space bar holds down
};

}  // namespace vantora
