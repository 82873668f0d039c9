// The window of a form: makes a face for every control, keeps the faces like the controls, and
// brings keys, mouse and focus to the handlers in their order.
#pragma once

#include "backends/qt/faces/face.h"
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

class FormWindow final : public QWidget {
 public:
  FormWindow(Form& form, WindowHost& host);
  ~FormWindow() override;

  Form* form() const { return form_; }
  WindowHost& host() { return host_; }
  void Orphan();                           // the form is going; nothing reaches a handler any more
  bool Busy() const { return busy_ > 0; }  // one of its handlers is still running

  void Sync();
  bool Syncing() const { return syncing_; }
  bool Touched() const { return touching_ > 0; }   // mouse or key is being handled just now
  QPoint LastTouch() const { return lastTouch_; }  // on the screen: where a menu belongs
  Face* FaceOf(const Control& control) const;
  Control* FocusControl() const;
  void FocusOn(const Control& control, Qt::FocusReason reason = Qt::OtherFocusReason);
  bool Holds(const Control& control) const;  // others lie in it
  bool Pressed(const Face& face) const { return pressed_ == &face; }
  double Scale() const { return scale_; }   // of what is shown to the form's own pixels
  void StandOver(const FormWindow& owner);  // its middle over the owner's
  void PaintAtOnce();    // what a person waits for, however short the last paint lies back
  void Restore();        // after it was minimized
  bool Refused() const;  // no input: disabled, behind a modal window or without a form
  QButtonGroup* Group(int group);  // of option buttons

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
  bool HoldPaint();  // true: not yet, the window was painted just now

  Form* form_;
  WindowHost& host_;
  std::map<const Control*, std::unique_ptr<Face>> faces_;
  std::vector<Control*> known_;                 // Form::Controls when the faces were made
  std::set<const Control*> containers_;         // those of `known_`
  std::vector<std::unique_ptr<Face>> retired_;  // a handler below may still stand in them
  QHash<QObject*, Face*> byObject_;
  const Face* pressed_ = nullptr;  // took the press that has not been let go
  std::map<int, QButtonGroup*> groups_;
  QPixmap ground_;
  QPoint place_;   // the form's place at the last exchange with it
  QPoint middle_;  // of the place that was wanted last
  double scale_ = 1;
  QSize natural_;    // what was fitted last
  QRect room_;       // into which; null before the first time
  QMargins border_;  // the desktop's, a guess at first
  bool borderKnown_ = false;
  QPoint lastTouch_;
  QPoint dragStart_;  // of a window without a border that is moved by its ground
  bool dragging_ = false, syncing_ = false;
  int busy_ = 0, touching_ = 0;
  QElapsedTimer sincePaint_;
  QTimer held_;  // runs while a paint is put off
  bool paintDue_ = false;
};

}  // namespace vantora
