#include "backends/qt/windows/form_window.h"

#include "backends/forms/focus.h"
#include "backends/qt/look/look.h"
#include "backends/qt/loop/keys.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QPainter>
#include <QPointer>
#include <QScopedValueRollback>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace vantora {

namespace {

constexpr int kPaintMs = 12;  // shortest time between two paints of a window

class Counted {
 public:
  explicit Counted(int& count) : count_(count) { ++count_; }
  ~Counted() { --count_; }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

 private:
  int& count_;
};

// Sets the stamp of an event while the event is handled.
class Stamped {
 public:
  Stamped(WindowHost& host, const QInputEvent& event)
      : host_(host), before_(host.Stamp(event.timestamp())) {}
  ~Stamped() { host_.Model().EventBegins(before_); }
  Stamped(const Stamped&) = delete;
  Stamped& operator=(const Stamped&) = delete;

 private:
  WindowHost& host_;
  std::optional<std::int64_t> before_;
};

// Lower layers are drawn first. Controls of one layer are drawn in the order of the form. A
// container is in the highest layer, because any control can lie in it; the controls in a container
// have no layers.
int Layer(const Control& control, bool holdsOthers) {
  if (control.Container != nullptr) return 0;
  if (holdsOthers) return 3;
  switch (control.Kind()) {
    case ControlKind::Shape:
    case ControlKind::PictureBox:
      return 0;
    case ControlKind::PictureButton:
      return HasMouseHandler(control) ? 1 : 0;
    case ControlKind::Label: {
      const auto& label = static_cast<const Label&>(control);
      return label.Caption().empty() && label.BackColor != kTransparent ? 0 : 2;
    }
    case ControlKind::LevelMeter:
      return 1;
    default:
      return 3;
  }
}

}  // namespace

FormWindow::FormWindow(Form& form, WindowHost& host) : form_(&form), host_(host) {
  // A window with a border belongs to the window behind it and stays above that window. It has no
  // minimize button, because the window behind may be waiting for it.
  Qt::WindowFlags flags = form.HasBorder ? Qt::Dialog : Qt::Window;
  if (form.HasBorder) {
    flags |= Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
             Qt::WindowCloseButtonHint;
  } else {
    flags |= Qt::FramelessWindowHint;
  }
  setWindowFlags(flags);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::NoFocus);
  setObjectName(look::FromText(form.Name));
  LetScreenReadersIn();
  Say(*this, {form.HasBorder ? QAccessible::Dialog : QAccessible::Window});
  held_.setSingleShot(true);
  connect(&held_, &QTimer::timeout, this, [this] {
    paintDue_ = true;
    QCoreApplication::postEvent(this, new QEvent(QEvent::UpdateRequest));
  });
  connect(screen(), &QScreen::availableGeometryChanged, this, [this] {
    if (form_ != nullptr) form_->Window.MarkDirty();
  });
  if (form.HasBorder) border_ = host.Border();
  form.Window.Dirty = true;
  Reconcile();
  for (Control* control : form.Controls) control->Dirty = true;
  form.Dirty = true;
  Sync();
}

// Widgets call their faces even while they are destroyed, so the widgets are destroyed first.
FormWindow::~FormWindow() {
  form_ = nullptr;
  byObject_.clear();
  std::vector<QPointer<QWidget>> widgets;  // a widget also deletes the widgets that lie in it
  for (const auto& [control, face] : faces_) widgets.emplace_back(face->widget());
  for (const auto& face : retired_) widgets.emplace_back(face->widget());
  for (const QPointer<QWidget>& widget : widgets) delete widget.data();
}

void FormWindow::Orphan() {
  form_ = nullptr;
  hide();
}

void FormWindow::Handle(const std::function<void()>& handler) {
  if (form_ == nullptr) return;
  const Counted busy(busy_);
  host_.Model().Handle(handler);
}

// ---- faces ----

void FormWindow::AddFace(Control& control) {
  std::unique_ptr<Face> face = MakeFace(control, *this);
  if (!face) return;
  const Face* container = control.Container == nullptr ? nullptr : FaceOf(*control.Container);
  if (container != nullptr) face->widget()->setParent(container->widget());
  for (QWidget* part : {face->widget(), face->surface()}) {
    byObject_.insert(part, face.get());
    part->installEventFilter(this);  // widget and surface may be the same object
  }
  faces_[&control] = std::move(face);
  control.Dirty = true;
}

void FormWindow::DropFace(Control* control) {
  const auto found = faces_.find(control);
  if (found == faces_.end()) return;
  pressed_.erase(found->second.get());
  for (QWidget* part : {found->second->widget(), found->second->surface()}) {
    byObject_.remove(part);
    part->removeEventFilter(this);
  }
  found->second->Retire();
  found->second->widget()->disconnect();
  retired_.push_back(std::move(found->second));
  faces_.erase(found);
}

// A form can gain and lose controls while its window exists.
void FormWindow::Reconcile() {
  const std::vector<Control*>& now = form_->Controls;
  for (Control* control : known_) {
    if (std::find(now.begin(), now.end(), control) == now.end()) DropFace(control);
  }
  for (Control* control : now) {
    if (faces_.count(control) == 0) AddFace(*control);
  }
  known_ = now;
  containers_.clear();
  for (const Control* control : now) {
    if (control->Container != nullptr) containers_.insert(control->Container);
  }
  form_->Dirty = true;
  StackFaces();
}

void FormWindow::StackFaces() {
  std::vector<Control*> order = known_;
  std::stable_sort(order.begin(), order.end(), [this](const Control* a, const Control* b) {
    return Layer(*a, Holds(*a)) < Layer(*b, Holds(*b));
  });
  for (const Control* control : order) {
    if (Face* face = FaceOf(*control)) face->widget()->raise();
  }
}

Face* FormWindow::FaceOf(const Control& control) const {
  const auto found = faces_.find(&control);
  return found == faces_.end() ? nullptr : found->second.get();
}

bool FormWindow::Holds(const Control& control) const {
  return containers_.count(&control) != 0;
}

QButtonGroup* FormWindow::Group(int group) {
  QButtonGroup*& buttons = groups_[group];
  if (buttons == nullptr) buttons = new QButtonGroup(this);
  return buttons;
}

void FormWindow::Sync() {
  if (form_ == nullptr) return;
  if (busy_ == 0) {
    for (const auto& face : retired_) face->widget()->deleteLater();
    retired_.clear();
  }
  if (!form_->Dirty) return;
  if (known_ != form_->Controls) Reconcile();
  form_->Dirty = false;
  const QScopedValueRollback<bool> syncing(syncing_, true);
  if (form_->Window.Dirty) ApplyFrame();
  for (Control* control : known_) {
    if (control->Kind() != ControlKind::Label) continue;
    const Control* button = static_cast<const Label*>(control)->Of;
    if (button != nullptr && button->Dirty) control->Dirty = true;
  }
  for (Control* control : known_) {
    if (!control->Dirty) continue;
    Face* face = FaceOf(*control);
    if (face != nullptr && !face->Fits()) {
      DropFace(control);
      AddFace(*control);
      StackFaces();
      face = FaceOf(*control);
    }
    if (face != nullptr) face->Sync();
    control->Dirty = false;
  }
}

// ---- focus ----

Control* FormWindow::FocusControl() const {
  const Face* face = byObject_.value(focusWidget());
  return face == nullptr ? nullptr : face->control();
}

void FormWindow::FocusOn(const Control& control, Qt::FocusReason reason) {
  const Face* face = FaceOf(control);
  if (face != nullptr && CanHaveFocus(control)) face->widget()->setFocus(reason);
}

// Handles the Tab key. The toolkit also calls this function when it hides or disables the widget
// with the focus.
bool FormWindow::focusNextPrevChild(bool next) {
  if (form_ == nullptr) return false;
  const Control* control = NextFocus(*form_, FocusControl(), !next);
  if (control == nullptr) return false;
  FocusOn(*control, next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
  return true;
}

// A window keeps its focused control when it comes to the front or goes behind another window, so
// nothing is reported then. While Sync runs, some controls are not yet up to date, so the report is
// posted.
void FormWindow::FocusChange(Face& face, QObject* object, QEvent& event) {
  object->event(&event);
  const auto reason = static_cast<QFocusEvent&>(event).reason();
  const bool in = event.type() == QEvent::FocusIn;
  Control* changed = face.control();
  if (changed == nullptr || reason == Qt::PopupFocusReason) return;
  // The drop-down list of a combo box is part of the box.
  const bool away =
      reason == Qt::ActiveWindowFocusReason || QApplication::activePopupWidget() != nullptr;
  if (!in && away) return;
  const auto report = [in, changed, self = QPointer<FormWindow>(this)] {
    if (self == nullptr || self->FaceOf(*changed) == nullptr) return;
    const Counted busy(self->busy_);
    FormLoop& model = self->host_.Model();
    if (in) {
      model.FocusCame(*changed);
    } else {
      model.FocusWent(*changed);
    }
  };
  if (syncing_) {
    host_.Model().Post(report);
  } else {
    report();
  }
}

// ---- input ----

bool FormWindow::Refused() const {
  return form_ == nullptr || !host_.Model().TakesInput(*form_);
}

bool FormWindow::eventFilter(QObject* object, QEvent* event) {
  Face* face = byObject_.value(object);
  if (face == nullptr) return false;
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
      return object == face->surface() ? Input(*face, *event) : Refused();
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
      return object == face->widget() ? Input(*face, *event) : Refused();
    case QEvent::ContextMenu:
      return Refused() || MenuKey(*face, static_cast<const QContextMenuEvent&>(*event));
    case QEvent::Wheel:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
      return Refused();
    case QEvent::FocusIn:
    case QEvent::FocusOut:
      if (object != face->widget()) return false;
      FocusChange(*face, object, *event);
      return true;
    default:
      return false;
  }
}

// An event for a control does not go on to the window below the control: there, the mouse would
// move the window, and a key would be reported twice.
bool FormWindow::Input(Face& face, QEvent& event) {
  event.accept();
  const Control* control = face.control();
  if (control == nullptr) return true;
  const bool pressed =
      event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick;
  const bool moved = event.type() == QEvent::MouseMove;
  if ((pressed || moved) && !host_.Model().TakesInput(*control)) return true;
  // A release belongs to the press before it. If the press was refused, the release is refused as
  // well.
  if (event.type() == QEvent::MouseButtonRelease && pressed_.erase(&face) == 0) return true;
  const Counted touching(touching_);
  const Stamped stamped(host_, static_cast<const QInputEvent&>(event));
  lastTouch_ = TouchedPlace(face, event);
  switch (event.type()) {
    case QEvent::MouseButtonPress:
      pressed_.insert(&face);
      face.MousePress(static_cast<QMouseEvent&>(event));
      break;
    case QEvent::MouseButtonRelease:
      face.MouseRelease(static_cast<QMouseEvent&>(event));
      break;
    case QEvent::MouseButtonDblClick:
      pressed_.insert(&face);
      face.MouseDouble(static_cast<QMouseEvent&>(event));
      break;
    case QEvent::MouseMove:
      face.MouseMove(static_cast<QMouseEvent&>(event));
      break;
    case QEvent::KeyPress:
      KeyPress(&face, static_cast<QKeyEvent&>(event));
      break;
    default:
      KeyRelease(&face, static_cast<QKeyEvent&>(event));
      break;
  }
  event.accept();
  return true;
}

// The menu key acts like the right mouse button on the control with the focus.
bool FormWindow::MenuKey(Face& face, const QContextMenuEvent& event) {
  if (event.reason() != QContextMenuEvent::Keyboard) return false;
  lastTouch_ = face.MenuPlace();
  Handle([&face] {
    const Control* control = face.control();
    if (control == nullptr) return;
    if (const auto up = control->MouseUp) up(kRightButton);
  });
  return true;
}

QPoint FormWindow::TouchedPlace(const Face& face, const QEvent& event) {
  if (event.type() == QEvent::KeyPress || event.type() == QEvent::KeyRelease) {
    return face.widget()->mapToGlobal(face.widget()->rect().center());
  }
  return static_cast<const QMouseEvent&>(event).globalPosition().toPoint();
}

void FormWindow::KeyPress(Face* face, QKeyEvent& event) {
  if (form_ == nullptr) return;
  const Counted busy(busy_);
  const KeyStroke stroke = keys::StrokeOf(event);
  Control* focus = face == nullptr ? nullptr : face->control();
  host_.Model().Keys().Down(*form_, focus, stroke, [&] {
    if (face != nullptr) return face->KeyPress(event);
    if (stroke.Code == kKeyTab) focusNextPrevChild(!stroke.Shift);
  });
}

void FormWindow::KeyRelease(Face* face, QKeyEvent& event) {
  if (form_ == nullptr) return;
  const Counted busy(busy_);
  Control* focus = face == nullptr ? nullptr : face->control();
  host_.Model().Keys().Up(*form_, focus, keys::Code(event), event.isAutoRepeat(),
                          [&] { face->KeyRelease(event); });
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
  event->accept();
  const Stamped stamped(host_, *event);
  KeyPress(nullptr, *event);
}

void FormWindow::keyReleaseEvent(QKeyEvent* event) {
  event->accept();
  const Stamped stamped(host_, *event);
  KeyRelease(nullptr, *event);
}

void FormWindow::mousePressEvent(QMouseEvent* event) {
  if (Refused() || form_->HasBorder || event->button() != Qt::LeftButton) return;
  if (windowHandle() != nullptr && windowHandle()->startSystemMove()) return;
  dragStart_ = event->globalPosition().toPoint() - pos();
  dragging_ = true;
}

void FormWindow::mouseMoveEvent(QMouseEvent* event) {
  dragging_ = dragging_ && event->buttons().testFlag(Qt::LeftButton);
  if (dragging_) move(event->globalPosition().toPoint() - dragStart_);
}

// ---- the window ----

bool FormWindow::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::UpdateRequest:
      LearnBorder();
      if (HoldPaint()) return true;
      break;
    case QEvent::WindowActivate:
      host_.Activated();
      break;
    case QEvent::KeyPress:  // the toolkit would handle the Tab key itself
      keyPressEvent(static_cast<QKeyEvent*>(event));
      return true;
    case QEvent::WindowDeactivate:
      if (form_ != nullptr) LeaveKeys();
      break;
    case QEvent::WindowStateChange: {
      const auto before = static_cast<QWindowStateChangeEvent*>(event)->oldState();
      const bool restored = before.testFlag(Qt::WindowMinimized) && !isMinimized();
      if (restored && form_ != nullptr) host_.Model().Restored(*form_);
      break;
    }
    default:
      break;
  }
  return QWidget::event(event);
}

// The release of a key in another window does not reach this window, so held keys are reported as
// released now.
void FormWindow::LeaveKeys() {
  const Counted busy(busy_);
  host_.Model().Keys().Leave(*form_);
}

bool FormWindow::HoldPaint() {
  // Read once: a second reading may be later by any time on a busy machine, and no timer runs for a
  // negative time.
  const qint64 since = sincePaint_.isValid() ? sincePaint_.elapsed() : kPaintMs;
  if (since < kPaintMs && !paintDue_) {
    if (!held_.isActive()) held_.start(static_cast<int>(kPaintMs - since));
    return true;
  }
  held_.stop();
  paintDue_ = false;
  sincePaint_.restart();
  host_.Painted();
  return false;
}

void FormWindow::PaintAtOnce() {
  paintDue_ = true;
  if (!held_.isActive()) return;
  held_.stop();
  QCoreApplication::postEvent(this, new QEvent(QEvent::UpdateRequest));
}

void FormWindow::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  if (ground_.isNull() || ground_.hasAlpha()) {
    painter.fillRect(event->rect(), palette().color(QPalette::Window));
  }
  if (ground_.isNull()) return;
  // With a clip of one rectangle the toolkit copies the pixels. With a clip of several rectangles
  // it would blend the pixels one by one.
  for (const QRect& part : event->region()) {
    painter.setClipRect(part);
    painter.drawPixmap(0, 0, ground_);
  }
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  const bool always =
      form_ != nullptr && form_->CloseWhileDisabled && host_.Model().Reachable(*form_);
  if (always || !Refused()) Handle([this] { form_->Form_Close(); });
}

}  // namespace vantora
