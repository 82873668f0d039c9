// Hands without a screen: they change the model and call the handlers in the order in which real
// widgets would. Everything happens before the call returns; a handler that opens a modal window
// keeps the call until the window has gone.
#pragma once

#include "backends/headless/headless_loop.h"

#include "platform/hands.h"

namespace vantora {

class HeadlessHands final : public Hands {
 public:
  explicit HeadlessHands(HeadlessLoop& loop) : loop_(loop) {}

  void Press(Control& control) override;
  void DoubleClick(Control& control) override;
  void RightClick(Control& control) override;
  void PressAt(Control& control, int at) override;
  void DoubleClickAt(Control& control, int at) override;
  // A slider takes the value of the place; a vertical one is dragged along its height.
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
  struct Stroke {
    int Code = 0;       // for KeyDown and KeyUp; 0 for keys that have none
    int Character = 0;  // for KeyPress; 0 for keys that write nothing
    bool Control = false, Shift = false;
  };
  static Stroke ParseKey(const Text& key);

  void Reach(Form& form, bool evenDisabled = false);
  void Reach(Control& control);
  void MouseButton(Control& control, int button);
  void KeepDown(Control& control, int ms);
  void Down(Control& control, int button);
  void Up(Control& control, int button);
  void SecondPress(Control& control);
  void Point(Control& control, int at);
  void PointAtMiddle(Control& control);
  void DragOnPicture(PictureBox& box, int from, int to);
  void SelectInBox(ListBox& list, const std::vector<int>& rows);
  void SelectInView(ListView& list, const std::vector<int>& rows);
  void SelectInCombo(ComboBox& list, const std::vector<int>& rows);
  void Send(Form& form, const Stroke& stroke);
  void SendToFocus(Form& form, const Stroke& stroke);
  void Effect(Control& control, const Stroke& stroke);
  void TypeInto(TextBox& box, const Stroke& stroke);
  void MoveInList(ListControl& list, int key);
  void MoveInView(ListView& list, const Stroke& stroke);
  void MoveSlider(Slider& slider, int key);
  void MoveOption(OptionButton& option, int key);
  void MoveFocus(Form& form, bool back);
  void SetSlider(Slider& slider, int value);
  void Call(Control& control, const std::function<void()>& handler);
  bool Still(const Control& control) const;

  HeadlessLoop& loop_;
  bool shift_ = false;               // held while the mouse presses
  int held_ = 0;                     // controls that are still to be let go
  const Control* marked_ = nullptr;  // the text box whose whole text is marked
};

}  // namespace vantora
