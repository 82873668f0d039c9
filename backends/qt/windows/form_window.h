// The window of a form. It creates a face for every control, updates the faces when the controls
// change, and passes keys, mouse and focus to the handlers in their order.
#pragma once

#include "backends/qt/faces/face.h"
#include "backends/qt/faces/spoken.h"
#include "backends/qt/windows/fit.h"
#include "backends/qt/windows/window_host.h"

#include <QElapsedTimer>
#include <QHash>
#include <QTimer>
#include <QWidget>

#include <map>
#include <set>
#include <vector>

class QButtonGroup;

namespace vantora {

class FormWindow final : public QWidget, public Spoken {
 public:
  FormWindow(Form& form, WindowHost& host);
  ~FormWindow() override;

  Form* form() const { return form_; }
  WindowHost& host() { return host_; }
  void Orphan();                           // the form is destroyed; no handler is called any more
  bool Busy() const { return busy_ > 0; }  // one of its handlers is still running

  void Sync();
  bool Syncing() const { return syncing_; }
  bool Touched() const { return touching_ > 0; }   // a mouse or key event is being handled
  QPoint LastTouch() const { return lastTouch_; }  // on the screen; menus open here
  Face* FaceOf(const Control& control) const;
  Control* FocusControl() const;
  void FocusOn(const Control& control, Qt::FocusReason reason = Qt::OtherFocusReason);
  bool Holds(const Control& control) const;  // true: other controls lie in this one
  bool Pressed(const Face& face) const { return pressed_.contains(&face); }
  double Scale() const { return scale_; }  // pixels of the window for a pixel of the form
  // Centres this window over its owner, clear of the row that the form wants to be seen.
  void StandOver(const FormWindow& owner);
  void PaintAtOnce();              // paints soon, even if the last paint was just now
  void Restore();                  // shows the window again after it was minimized
  bool Refused() const;            // true: disabled, behind a modal window or without a form
  QButtonGroup* Group(int group);  // a group of option buttons

  void Handle(const std::function<void()>& handler);

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* object, QEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void paintEvent(QPaintEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;

 private:
  void ApplyFrame();
  void ApplyGround(Color back);
  bool FillScreen(const QRect& place);
  void Stand(const QPoint& middle);
  void StandClearOf(const QRect& seen);
  void Resize(const Fit& fit);
  void TellPlace();
  void LearnBorder();
  void Reconcile();
  void AddFace(Control& control);
  void DropFace(Control* control);
  void StackFaces();
  bool Input(Face& face, QEvent& event);
  bool MenuKey(Face& face, const QContextMenuEvent& event);
  static QPoint TouchedPlace(const Face& face, const QEvent& event);
  void KeyPress(Face* face, QKeyEvent& event);
  void KeyRelease(Face* face, QKeyEvent& event);
  void LeaveKeys();
  void FocusChange(Face& face, QObject* object, QEvent& event);
  bool HoldPaint();  // true: the paint is put off, since the last one was just now

  Form* form_;
  WindowHost& host_;
  std::map<const Control*, std::unique_ptr<Face>> faces_;
  std::vector<Control*> known_;                 // Form::Controls when the faces were made
  std::set<const Control*> containers_;         // the containers among `known_`
  std::vector<std::unique_ptr<Face>> retired_;  // without a control; handlers may still run
  QHash<QObject*, Face*> byObject_;
  std::set<const Face*> pressed_;  // faces on which a mouse button is still pressed
  std::map<int, QButtonGroup*> groups_;
  QPixmap ground_;
  QPoint place_;   // the form's place when it was last read or written
  QPoint middle_;  // middle of the place that was wanted last
  double scale_ = 1;
  QSize natural_;    // unscaled size at the last fit
  QRect room_;       // available area at the last fit; null before the first fit
  QMargins border_;  // the desktop's frame around the window, a guess at first
  bool borderKnown_ = false;
  QPoint lastTouch_;
  QPoint dragStart_;  // where the mouse holds a window without a border
  bool dragging_ = false, syncing_ = false;
  int busy_ = 0, touching_ = 0;
  QElapsedTimer sincePaint_;
  QTimer held_;  // runs while a paint is put off
  bool paintDue_ = false;
};

}  // namespace vantora
