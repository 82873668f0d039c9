// Simulates a mouse and a keyboard on real widgets: sends their events to the widget of a control.
//
// A call checks at once whether its action is possible. The action itself is done when the loop
// turns. A press that opens a modal window therefore does not block the caller, and the loop asks
// its user again inside that window. If an action fails later, the next call throws the error.
#pragma once

#include "backends/qt/loop/qt_event_loop.h"

#include "platform/hands.h"

#include <memory>

class QPointF;

template <typename T>
class QPointer;

namespace vantora {

class QtHands final : public Hands {
 public:
  explicit QtHands(QtEventLoop& loop);
  ~QtHands() override;

  void Press(Control& control) override;
  void DoubleClick(Control& control) override;
  void RightClick(Control& control) override;
  void PressAt(Control& control, int at) override;
  void DoubleClickAt(Control& control, int at) override;
  void Drag(Control& control, int from, int to) override;
  void Pull(Control& control, int x, int y) override;
  void ShiftPress(Control& control) override;
  void Hold(Control& control, int ms) override;
  bool Holding() const override;
  void Type(Control& control, const Text& text) override;
  void Select(Control& control, const std::vector<int>& rows) override;
  void Key(Form& form, const Text& key) override;
  void ChooseMenu(Form& form, const Text& item) override;
  void Close(Form& form) override;
  void Drop(Control& control, const std::vector<Text>& files) override;
  // Updates the window first, and does not wait.
  bool Shot(Form& form, const std::string& file) override;

  // Throws the error of an earlier action, if one failed. All actions above call this first.
  void Settle();

 private:
  class Fingers;
  void Click(const QPointer<QWidget>& surface, const QPointF& place, bool twice,
             bool shift = false);
  void SelectInCombo(const QPointer<QWidget>& widget, int row);
  void SelectInView(const QPointer<QWidget>& widget, const std::vector<int>& rows);

  std::shared_ptr<Fingers> fingers_;  // shared with actions that are still to be done
};

}  // namespace vantora
