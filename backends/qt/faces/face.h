// The widget that shows a control: Sync updates the widget from the control, and user input goes
// back to the control and its handlers.
//
// Widgets never read the control while they paint: the form may be gone while its widgets still
// exist.
#pragma once

#include "backends/qt/faces/spoken.h"

#include "platform/event_loop.h"

#include <QObject>
#include <QString>
#include <QWidget>

#include <memory>
#include <tuple>

class QKeyEvent;
class QMouseEvent;

namespace vantora {

class FormWindow;
class Pictures;

class Face {
 public:
  // The widget belongs to the window, which deletes it.
  Face(Control& control, FormWindow& window, QWidget* widget);
  virtual ~Face() = default;
  Face(const Face&) = delete;
  Face& operator=(const Face&) = delete;

  Control* control() const;  // null when the control or its form is gone
  QWidget* widget() const { return widget_; }
  QWidget* surface() const { return surface_; }  // the part of the widget that receives the mouse
  void Retire();                                 // called when the control is gone

  void Sync();  // updates the widget from the control
  // Returns false when the control needs another face, since it gained or lost handlers.
  virtual bool Fits() const { return true; }

  // User input on the surface. Each function raises the control's handlers for its event.
  virtual void MousePress(QMouseEvent& event);
  virtual void MouseRelease(QMouseEvent& event);
  virtual void MouseDouble(QMouseEvent& event);
  virtual void MouseMove(QMouseEvent& event) { Pass(event); }
  virtual void KeyPress(QKeyEvent& event) { PassKey(event); }
  virtual void KeyRelease(QKeyEvent& event) { PassKey(event); }
  virtual void FocusChanged(bool /*in*/) {}
  // The selected line of a list on the screen; null for none.
  virtual QRect SelectedPlace() const { return {}; }
  // Position on the screen of a menu opened by a key.
  virtual QPoint MenuPlace() const { return widget_->mapToGlobal(widget_->rect().center()); }

 protected:
  // Sets the font and the tooltip. Levels and times change many times a second, fonts hardly ever,
  // and making a font takes long, so this function is called only when one of them has changed.
  virtual void Dress(const Control& control);
  virtual void Speak(const Control& control);  // sets the name that a screen reader speaks
  virtual void Apply(Control& control) = 0;
  // What a screen reader learns of the control, for widgets that are Spoken.
  virtual Said Says(const Control& /*control*/) const { return {}; }
  // True: a widget changes, but neither by mouse or keys nor by Sync, so a screen reader changes
  // it.
  bool ByReader() const;
  // Does what a screen reader's user presses, unless the control takes no input now.
  void PressedByReader(const std::function<void()>& act);
  // True: a click with the left button raises Click. Controls that raise Click on a change of their
  // value do so themselves.
  virtual bool ClicksByMouse() const { return true; }

  template <typename C>
  C* As() const {
    return static_cast<C*>(control());
  }
  void SetSurface(QWidget* surface) { surface_ = surface; }
  FormWindow& window() const { return window_; }
  Pictures& pictures() const;

  virtual void Pass(QMouseEvent& event);  // passes the event to the widget
  void PassKey(QKeyEvent& event);
  // Changes the control after user input and keeps it clean, so that the widget is not updated
  // again.
  void Take(const std::function<void(Control&)>& change);
  void Fire(const std::function<void(Control&)>& handler);
  void FireClick();
  void ReportRelease(const QMouseEvent& event);  // MouseUp, then Click

 private:
  FormWindow& window_;
  Control* control_;
  QWidget* widget_;
  QWidget* surface_;
  Spoken* spoken_;  // the widget; null when it is not spoken
  // What the widget was dressed with: font, size, bold, italic, tooltip, name, and the window's
  // scale.
  std::tuple<Text, int, bool, bool, Text, Text> dress_;
  double scale_ = 0;
};

std::unique_ptr<Face> MakeFace(Control& control, FormWindow& window);
// Each function creates the faces of some kinds of controls. MakeFace calls them.
std::unique_ptr<Face> MakeDrawnFace(Control& control, FormWindow& window);
std::unique_ptr<Face> MakeInputFace(Control& control, FormWindow& window);
std::unique_ptr<Face> MakeTableFace(ListView& list, FormWindow& window);

}  // namespace vantora
