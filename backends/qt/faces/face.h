// What a control looks like: one widget, kept like the control by Sync, and the way back from the
// user's hand into the control and to its handlers.
//
// Widgets never look at the control while they paint: a form can go while its widgets still stand.
#pragma once

#include "platform/event_loop.h"

#include <QObject>
#include <QString>
#include <QWidget>

#include <memory>

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

  Control* control() const;  // nothing when the control or its form has gone
  QWidget* widget() const { return widget_; }
  QWidget* surface() const { return surface_; }  // the part of the widget that gets the mouse
  void Retire();                                 // the control has gone

  void Sync();                                // control to widget
  virtual bool Fits() const { return true; }  // false: handlers came or went, make another face

  // Input on the surface, in the order in which handlers are told.
  virtual void MousePress(QMouseEvent& event);
  virtual void MouseRelease(QMouseEvent& event);
  virtual void MouseDouble(QMouseEvent& event);
  virtual void MouseMove(QMouseEvent& event) { Pass(event); }
  virtual void KeyPress(QKeyEvent& event) { PassKey(event); }
  virtual void KeyRelease(QKeyEvent& event) { PassKey(event); }
  virtual void FocusChanged(bool /*in*/) {}
  // Where a menu that a key asks for belongs; on the screen.
  virtual QPoint MenuPlace() const { return widget_->mapToGlobal(widget_->rect().center()); }

 protected:
  virtual void Apply(Control& control) = 0;
  // True: a click of the left button raises Click. Controls whose Click means a change of their
  // value raise it themselves.
  virtual bool ClicksByMouse() const { return true; }

  template <typename C>
  C* As() const {
    return static_cast<C*>(control());
  }
  void SetSurface(QWidget* surface) { surface_ = surface; }
  FormWindow& window() const { return window_; }
  Pictures& pictures() const;

  virtual void Pass(QMouseEvent& event);  // to the widget's own behaviour
  void PassKey(QKeyEvent& event);
  // Changes the control after the user's hand, without a way back to the widget.
  void Take(const std::function<void(Control&)>& change);
  void Fire(const std::function<void(Control&)>& handler);
  void FireClick();
  void TellRelease(const QMouseEvent& event);  // MouseUp, then Click

 private:
  FormWindow& window_;
  Control* control_;
  QWidget* widget_;
  QWidget* surface_;
};

std::unique_ptr<Face> MakeFace(Control& control, FormWindow& window);
// Faces of one kind, made by MakeFace.
std::unique_ptr<Face> MakeDrawnFace(Control& control, FormWindow& window);
std::unique_ptr<Face> MakeInputFace(Control& control, FormWindow& window);
std::unique_ptr<Face> MakeTableFace(ListView& list, FormWindow& window);

}  // namespace vantora
