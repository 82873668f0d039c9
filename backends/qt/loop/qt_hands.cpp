#include "backends/qt/loop/qt_hands.h"

#include "backends/forms/focus.h"
#include "backends/forms/reach.h"
#include "backends/qt/look/look.h"
#include "backends/qt/loop/keys.h"
#include "backends/qt/windows/form_window.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QUrl>

#include <optional>

namespace vantora {

namespace {

// The part of a control's widget that receives the mouse.
QWidget* SurfaceOf(QWidget* widget) {
  auto* view = qobject_cast<QAbstractScrollArea*>(widget);
  return view == nullptr ? widget : view->viewport();
}

// The part of a surface that no parent widget cuts off.
QRect ShownOf(const QWidget* surface) {
  QRect seen = surface->rect();
  for (const QWidget* widget = surface; !widget->isWindow();) {
    widget = widget->parentWidget();
    seen &= QRect(surface->mapFrom(widget, QPoint()), widget->size());
  }
  return seen;
}

// Converts a share of a control's length, in thousandths, to a point. 1000 is the far edge.
QPointF PlaceAt(const Control& control, const QWidget* surface, int share) {
  const bool upright =
      control.Kind() == ControlKind::Slider && static_cast<const Slider&>(control).Vertical;
  const QPoint middle = surface->rect().center();
  return upright ? QPoint(middle.x(), surface->height() * share / 1000)
                 : QPoint(surface->width() * share / 1000, middle.y());
}

// A click first gives the focus. The toolkit does this for clicks from the screen only, so it is
// done here for simulated clicks.
void FocusByClick(QWidget* on) {
  for (QWidget* widget = on; widget != nullptr; widget = widget->parentWidget()) {
    if (widget->isEnabled() && widget->focusPolicy() & Qt::ClickFocus) {
      if (!widget->hasFocus()) widget->setFocus(Qt::MouseFocusReason);
      return;
    }
    if (widget->isWindow()) return;
  }
}

void SendMouse(const QPointer<QWidget>& on, QEvent::Type type, QPointF place,
               Qt::MouseButton button, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  if (on != nullptr && type == QEvent::MouseButtonPress) FocusByClick(on);
  if (on == nullptr) return;
  const bool held = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick ||
                    type == QEvent::MouseMove;
  const QPointF onScreen = on->mapToGlobal(place);
  QMouseEvent event(type, place, onScreen, type == QEvent::MouseMove ? Qt::NoButton : button,
                    held ? Qt::MouseButtons(button) : Qt::MouseButtons(), modifiers);
  QApplication::sendEvent(on, &event);
}

void SendKey(const QPointer<QWidget>& on, QEvent::Type type, const KeyStroke& stroke) {
  if (on == nullptr) return;
  QKeyEvent event = keys::EventOf(stroke, type);
  QApplication::sendEvent(on, &event);
}

void SendKey(const QPointer<QWidget>& on, const Text& name) {
  if (const auto stroke = KeyByName(name)) SendKey(on, QEvent::KeyPress, *stroke);
}

}  // namespace

// Does the work of the hands when the loop turns. Posted work keeps this object alive, also after
// the hands have been destroyed.
class QtHands::Fingers : public std::enable_shared_from_this<QtHands::Fingers> {
 public:
  explicit Fingers(QtEventLoop& loop) : loop_(loop) {}

  void Settle() {
    if (!found_) return;
    const std::string found = *found_;
    found_.reset();
    Refuse(found);
  }

  // Runs each step at a turn of the loop of its own. If a step opens a modal window and does not
  // return, the next step runs inside that window.
  void Do(std::vector<std::function<void()>> steps) {
    for (std::function<void()>& step : steps) {
      const std::int64_t at = Moment.value_or(loop_.EventMs());
      loop_.Post([self = shared_from_this(), at, step = std::move(step)] {
        try {
          self->loop_.Sync();
          self->loop_.ActAt(at, step);
        } catch (const Unreachable& refused) {
          self->found_ = refused.what();
        }
      });
    }
  }

  QtEventLoop& loop() { return loop_; }

  void CheckForm(Form& form, bool evenDisabled = false) {
    loop_.Sync();
    Reach(loop_, form, evenDisabled);
  }

  QWidget* CheckControl(Control& control) {
    loop_.Sync();
    Reach(loop_, control);
    CloseMenuLeftOpen();
    QWidget* widget = loop_.WidgetOf(control);
    if (widget == nullptr) Refuse(NameOf(control) + " has no place in its window");
    if (!widget->isVisible()) Refuse(NameOf(control) + " is hidden");
    if (ShownOf(widget).isEmpty()) Refuse(NameOf(control) + " lies out of sight");
    return widget;
  }

  // Returns the widget that gets the keys: an open menu, or the widget with the focus in the form's
  // window. Returns null if the window is gone or a person could not type into it.
  QPointer<QWidget> KeysGoTo(const Form* form) const {
    if (QMenu* menu = loop_.OpenMenu()) return menu;
    if (form == nullptr || !loop_.Reachable(*form)) return nullptr;
    QWidget* window = loop_.WindowOf(*form);
    if (window == nullptr) return nullptr;
    return window->focusWidget() == nullptr ? window : window->focusWidget();
  }

  // Appends two steps: the key goes down in the form's window, and is released in the window that
  // is in front at that moment.
  void Strike(std::vector<std::function<void()>>& steps, const Form& form,
              const KeyStroke& stroke) {
    const auto self = shared_from_this();
    steps.emplace_back([=, &form] { SendKey(self->KeysGoTo(&form), QEvent::KeyPress, stroke); });
    steps.emplace_back(
        [=] { SendKey(self->KeysGoTo(self->loop_.Front()), QEvent::KeyRelease, stroke); });
  }

  // Returns a place where the mouse reaches this control and no control above it.
  QPoint FreePlace(const Control& control, QWidget* widget) {
    QWidget* surface = SurfaceOf(widget);
    const QRect all = ShownOf(surface);
    const bool marked =
        control.Kind() == ControlKind::CheckBox || control.Kind() == ControlKind::OptionButton;
    if (marked && Meets(surface, QPoint(8, all.center().y()))) return {8, all.center().y()};
    for (const QPoint middle : {surface->rect().center(), all.center()}) {
      if (Meets(surface, middle)) return middle;
    }
    constexpr int kGrid = 7;
    for (int row = 0; row < kGrid; ++row) {
      for (int column = 0; column < kGrid; ++column) {
        const QPoint place = all.topLeft() + QPoint(all.width() * (2 * column + 1) / (2 * kGrid),
                                                    all.height() * (2 * row + 1) / (2 * kGrid));
        if (Meets(surface, place)) return place;
      }
    }
    Refuse(NameOf(control) + " is covered by other controls, or nothing there takes the mouse");
  }

  // Returns the place that the caller has chosen; no other place is tried. At the far edge this is
  // the last pixel.
  QPointF ChosenPlace(const Control& control, QWidget* surface, int at) {
    const QRect all = surface->rect();
    const QPoint place = PlaceAt(control, surface, at).toPoint();
    const QPoint inside(std::min(place.x(), all.right()), std::min(place.y(), all.bottom()));
    if (!Meets(surface, inside)) {
      Refuse(NameOf(control) + " cannot be reached at " + std::to_string(at) +
             ": it is covered there, or out of sight");
    }
    return inside;
  }

  bool Held = false;
  std::optional<std::int64_t> Moment;  // copy of Hands::Moment

 private:
  static bool Meets(const QWidget* surface, QPoint place) {
    const QWidget* window = surface->window();
    const QPoint inWindow = surface->mapTo(window, place);
    return window->rect().contains(inWindow) && window->childAt(inWindow) == surface;
  }

  // A click beside an open menu first closes the menu.
  void CloseMenuLeftOpen() {
    if (QMenu* menu = loop_.OpenMenu()) menu->close();
  }

  QtEventLoop& loop_;
  std::optional<std::string> found_;
};

QtHands::QtHands(QtEventLoop& loop) : fingers_(std::make_shared<Fingers>(loop)) {}

QtHands::~QtHands() = default;

void QtHands::Settle() {
  fingers_->Moment = Moment;
  fingers_->Settle();
}

void QtHands::Press(Control& control) {
  Settle();
  const QPointer<QWidget> widget = fingers_->CheckControl(control);
  const QPoint place = fingers_->FreePlace(control, widget);
  Click(SurfaceOf(widget), place, false);
}

void QtHands::PressAt(Control& control, int at) {
  Settle();
  QWidget* surface = SurfaceOf(fingers_->CheckControl(control));
  Click(surface, fingers_->ChosenPlace(control, surface, at), false);
}

void QtHands::DoubleClickAt(Control& control, int at) {
  Settle();
  QWidget* surface = SurfaceOf(fingers_->CheckControl(control));
  Click(surface, fingers_->ChosenPlace(control, surface, at), true);
}

void QtHands::Click(const QPointer<QWidget>& surface, const QPointF& place, bool twice,
                    bool shift) {
  const Qt::KeyboardModifiers held = shift ? Qt::ShiftModifier : Qt::NoModifier;
  const auto send = [=](QEvent::Type type) {
    return [=] { SendMouse(surface, type, place, Qt::LeftButton, held); };
  };
  fingers_->Do({send(QEvent::MouseButtonPress), send(QEvent::MouseButtonRelease)});
  if (twice) fingers_->Do({send(QEvent::MouseButtonDblClick), send(QEvent::MouseButtonRelease)});
}

namespace {

// In a list, the action applies to the current row.
QPoint PresentPlace(QWidget& widget, const QPoint& otherwise) {
  auto* view = qobject_cast<QAbstractItemView*>(&widget);
  if (view == nullptr || !view->currentIndex().isValid()) return otherwise;
  view->scrollTo(view->currentIndex());
  return view->visualRect(view->currentIndex()).center();
}

}  // namespace

void QtHands::DoubleClick(Control& control) {
  Settle();
  const QPointer<QWidget> widget = fingers_->CheckControl(control);
  const QPoint place = PresentPlace(*widget, fingers_->FreePlace(control, widget));
  Click(SurfaceOf(widget), place, true);
}

void QtHands::RightClick(Control& control) {
  Settle();
  const QPointer<QWidget> widget = fingers_->CheckControl(control);
  const QPoint place = PresentPlace(*widget, fingers_->FreePlace(control, widget));
  const QPointer<QWidget> surface = SurfaceOf(widget);
  fingers_->Do({[=] { SendMouse(surface, QEvent::MouseButtonPress, place, Qt::RightButton); },
                [=] { SendMouse(surface, QEvent::MouseButtonRelease, place, Qt::RightButton); }});
}

void QtHands::Drag(Control& control, int from, int to) {
  Settle();
  const QPointer<QWidget> widget = fingers_->CheckControl(control);
  fingers_->FreePlace(control, widget);
  const QPointer<QWidget> surface = SurfaceOf(widget);
  const bool picture = control.Kind() == ControlKind::PictureBox;
  const QPointF end = PlaceAt(control, surface, to);
  const QPointF start =
      picture ? fingers_->ChosenPlace(control, surface, from) : PlaceAt(control, surface, from);
  // The control may move with the mouse, but the path of the mouse on the screen stays the same.
  const QPointF corner = surface->mapToGlobal(QPointF());
  const auto send = [=](QEvent::Type type, QPointF place) {
    return [=] {
      if (surface == nullptr) return;
      SendMouse(surface, type, place + corner - surface->mapToGlobal(QPointF()), Qt::LeftButton);
    };
  };
  fingers_->Do({send(QEvent::MouseButtonPress, start)});
  constexpr int kMoves = 4;
  for (int i = picture ? 1 : kMoves; i <= kMoves; ++i) {
    const QPointF place = start + (end - start) * i / kMoves;
    fingers_->Do({send(QEvent::MouseMove, place.toPoint())});
  }
  fingers_->Do({send(QEvent::MouseButtonRelease, end)});
}

void QtHands::ShiftPress(Control& control) {
  Settle();
  const QPointer<QWidget> widget = fingers_->CheckControl(control);
  Click(SurfaceOf(widget), fingers_->FreePlace(control, widget), false, true);
}

// The label may move with the mouse, so the path consists of screen positions.
void QtHands::Pull(Control& control, int x, int y) {
  Settle();
  const QPointer<QWidget> widget = fingers_->CheckControl(control);
  const QPoint start = fingers_->FreePlace(control, widget);
  const QPointer<QWidget> surface = SurfaceOf(widget);
  const auto* window = dynamic_cast<const FormWindow*>(surface->window());
  const double scale = window == nullptr ? 1 : window->Scale();
  const QPoint onScreen = surface->mapToGlobal(start);
  const QPoint way(look::Pixels(x, scale), look::Pixels(y, scale));
  const auto send = [=](QEvent::Type type, QPoint place) {
    return [=] {
      if (surface == nullptr) return;
      SendMouse(surface, type, surface->mapFromGlobal(place), Qt::LeftButton);
    };
  };
  constexpr int kMoves = 4;
  fingers_->Do({send(QEvent::MouseButtonPress, onScreen)});
  for (int i = 1; i <= kMoves; ++i) {
    fingers_->Do({send(QEvent::MouseMove, onScreen + way * i / kMoves)});
  }
  fingers_->Do({send(QEvent::MouseButtonRelease, onScreen + way)});
}

// The handler of the press may turn the loop until the release comes, so the release is posted
// before the press is sent.
void QtHands::Hold(Control& control, int ms) {
  Settle();
  const QPointer<QWidget> widget = fingers_->CheckControl(control);
  const QPoint place = fingers_->FreePlace(control, widget);
  const QPointer<QWidget> surface = SurfaceOf(widget);
  fingers_->Held = true;
  fingers_->Do({[=, fingers = fingers_] {
    fingers->loop().PostAfter(ms, [=] {
      fingers->Held = false;
      SendMouse(surface, QEvent::MouseButtonRelease, place, Qt::LeftButton);
    });
    SendMouse(surface, QEvent::MouseButtonPress, place, Qt::LeftButton);
  }});
}

bool QtHands::Holding() const {
  return fingers_->Held;
}

void QtHands::Type(Control& control, const Text& text) {
  Settle();
  if (control.Kind() != ControlKind::TextBox) Refuse(NameOf(control) + " takes no text");
  const QPointer<QWidget> widget = fingers_->CheckControl(control);
  fingers_->FreePlace(control, widget);
  std::vector<std::function<void()>> steps;
  steps.emplace_back([=] {
    if (widget != nullptr) widget->setFocus(Qt::MouseFocusReason);
  });
  const Form& form = control.Owner();
  fingers_->Strike(steps, form, *KeyByName(L"Ctrl+A"));
  fingers_->Strike(steps, form, *KeyByName(L"Delete"));
  for (const wchar_t character : text) fingers_->Strike(steps, form, KeyFor(character));
  fingers_->Do(std::move(steps));
}

void QtHands::Select(Control& control, const std::vector<int>& rows) {
  Settle();
  const QPointer<QWidget> widget = fingers_->CheckControl(control);
  CheckRows(control, rows);
  if (control.Kind() == ControlKind::ComboBox) return SelectInCombo(widget, rows.front());
  SelectInView(widget, rows);
}

// Chooses the row by keys in the list that drops down. Only the Return key chooses.
void QtHands::SelectInCombo(const QPointer<QWidget>& widget, int row) {
  const QPointer<QComboBox> combo = qobject_cast<QComboBox*>(widget.data());
  fingers_->Do({[=] {
                  if (combo == nullptr) return;
                  combo->setFocus(Qt::MouseFocusReason);
                  combo->showPopup();
                },
                [=] {
                  if (combo == nullptr) return;
                  const QPointer<QWidget> list = combo->view();
                  SendKey(list, L"Home");
                  for (int i = 1; i < row; ++i) {
                    SendKey(list, L"Down");
                  }
                  SendKey(list, L"Return");
                }});
}

// Clicks the first row, and then every other row with the Ctrl key held.
void QtHands::SelectInView(const QPointer<QWidget>& widget, const std::vector<int>& rows) {
  const QPointer<QAbstractItemView> view = qobject_cast<QAbstractItemView*>(widget.data());
  const auto click = [=](int row, Qt::KeyboardModifiers modifiers) {
    if (view == nullptr || row >= view->model()->rowCount()) return;
    const QModelIndex index = view->model()->index(row, 0);
    view->scrollTo(index);
    const QRect shown = view->visualRect(index).intersected(view->viewport()->rect());
    if (shown.isEmpty()) Refuse("a row of the list cannot be brought into sight");
    const QPointer<QWidget> surface = view->viewport();
    SendMouse(surface, QEvent::MouseButtonPress, shown.center(), Qt::LeftButton, modifiers);
    SendMouse(surface, QEvent::MouseButtonRelease, shown.center(), Qt::LeftButton, modifiers);
  };
  std::vector<std::function<void()>> steps;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const Qt::KeyboardModifiers held = i == 0 ? Qt::NoModifier : Qt::ControlModifier;
    steps.emplace_back([click, held, row = rows[i] - 1] { click(row, held); });
  }
  if (rows.empty()) {
    steps.emplace_back([=] {
      if (view == nullptr) return;
      const QModelIndexList chosen = view->selectionModel()->selectedRows();
      for (const QModelIndex& index : chosen) click(index.row(), Qt::ControlModifier);
    });
  }
  fingers_->Do(std::move(steps));
}

void QtHands::Key(Form& form, const Text& key) {
  Settle();
  const std::optional<KeyStroke> stroke = KeyByName(key);
  if (!stroke) Refuse("there is no key " + Utf8(key));
  fingers_->CheckForm(form, form.EscapeWhileDisabled && stroke->Code == kKeyEscape);
  std::vector<std::function<void()>> steps;
  fingers_->Strike(steps, form, *stroke);
  fingers_->Do(std::move(steps));
}

void QtHands::ChooseMenu(Form& form, const Text& item) {
  Settle();
  fingers_->CheckForm(form);
  const QPointer<QMenu> menu = fingers_->loop().OpenMenu();
  if (menu == nullptr) Refuse(NameOf(form) + " has no menu open");
  const QString wanted = look::Plain(item);
  const QList<QAction*> actions = menu->actions();
  for (QAction* action : actions) {
    if (action->data().toString() != wanted && action->objectName() != look::FromText(item))
      continue;
    if (!action->isEnabled()) Refuse("the menu's " + wanted.toStdString() + " is disabled");
    fingers_->Do({[menu, chosen = QPointer<QAction>(action)] {
      if (menu == nullptr || chosen == nullptr) return;
      menu->setActiveAction(chosen);
      SendKey(QPointer<QWidget>(menu), L"Return");
    }});
    return;
  }
  Refuse("the open menu has no " + wanted.toStdString());
}

void QtHands::Close(Form& form) {
  Settle();
  fingers_->CheckForm(form, form.CloseWhileDisabled);
  const QPointer<QWidget> window = fingers_->loop().WindowOf(form);
  fingers_->Do({[=] {
    if (window != nullptr) window->close();
  }});
}

void QtHands::Drop(Control& control, const std::vector<Text>& files) {
  Settle();
  const QPointer<QWidget> widget = fingers_->CheckControl(control);
  const QPoint place = fingers_->FreePlace(control, widget);
  if (!widget->acceptDrops()) Refuse(NameOf(control) + " takes no files");
  const QPointer<QWidget> surface = SurfaceOf(widget);
  const auto data = std::make_shared<QMimeData>();
  QList<QUrl> urls;
  for (const Text& file : files) urls << QUrl::fromLocalFile(look::FromText(file));
  data->setUrls(urls);
  fingers_->Do({[=] {
    if (surface == nullptr) return;
    QDragEnterEvent enter(place, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(surface, &enter);
    if (!enter.isAccepted() || surface == nullptr) return;
    QDropEvent drop(place, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(surface, &drop);
  }});
}

bool QtHands::Shot(Form& form, const std::string& file) {
  Settle();
  QtEventLoop& loop = fingers_->loop();
  loop.Sync();
  QWidget* window = loop.WindowOf(form);
  if (window == nullptr || !form.Visible()) Refuse(NameOf(form) + " is not shown");
  QPixmap picture = window->grab();
  QMenu* menu = loop.OpenMenu();
  QWidget* popup = menu != nullptr ? menu : QApplication::activePopupWidget();
  if (popup != nullptr) {
    QPainter painter(&picture);
    painter.drawPixmap(window->mapFromGlobal(popup->pos()), popup->grab());
  }
  const QString name = QString::fromStdString(file);
  if (!QFileInfo(name).dir().mkpath(QStringLiteral(".")) || !picture.save(name, "PNG")) {
    Refuse("the picture " + file + " cannot be written");
  }
  return true;
}

}  // namespace vantora
