#include "backends/qt/loop/qt_hands.h"

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

std::string Spoken(const Control& control) {
  std::string name = look::FromText(control.Owner().Name + L"." + control.Name).toStdString();
  if (control.Index >= 0) name += "(" + std::to_string(control.Index) + ")";
  return name;
}

std::string Spoken(const Form& form) {
  return look::FromText(form.Name).toStdString();
}

[[noreturn]] void Refuse(const std::string& why) {
  throw Unreachable(why);
}

// The part of a control's widget that the mouse meets.
QWidget* SurfaceOf(QWidget* widget) {
  auto* view = qobject_cast<QAbstractScrollArea*>(widget);
  return view == nullptr ? widget : view->viewport();
}

// What is seen of it between the edges of all that it lies in.
QRect SeenOf(const QWidget* surface) {
  QRect seen = surface->rect();
  for (const QWidget* widget = surface; !widget->isWindow();) {
    widget = widget->parentWidget();
    seen &= QRect(surface->mapFrom(widget, QPoint()), widget->size());
  }
  return seen;
}

// A place of a control in thousandths, along its length; a thousand is its edge.
QPointF PlaceAt(const Control& control, const QWidget* surface, int share) {
  const bool upright =
      control.Kind() == ControlKind::Slider && static_cast<const Slider&>(control).Vertical;
  const QPoint middle = surface->rect().center();
  return upright ? QPoint(middle.x(), surface->height() * share / 1000)
                 : QPoint(surface->width() * share / 1000, middle.y());
}

// A click gives the focus before it does anything else; the toolkit sees to it for clicks from the
// screen alone.
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

void SendKey(const QPointer<QWidget>& on, QEvent::Type type, const keys::Stroke& stroke) {
  if (on == nullptr) return;
  QKeyEvent event(type, stroke.Key, stroke.Modifiers, stroke.Words);
  QApplication::sendEvent(on, &event);
}

}  // namespace

// What the hands do later, when the loop turns. It outlives the hands while work is still posted.
class QtHands::Fingers : public std::enable_shared_from_this<QtHands::Fingers> {
 public:
  explicit Fingers(QtEventLoop& loop) : loop_(loop) {}

  void Settle() {
    if (!found_) return;
    const std::string found = *found_;
    found_.reset();
    Refuse(found);
  }

  // The steps come one after another, each at a turn of the loop: when one of them opens a window
  // and does not come back, the next one runs inside it.
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

  void CheckForm(const Form& form, bool evenDisabled = false) {
    loop_.Sync();
    if (!form.Visible()) Refuse(Spoken(form) + " is not shown");
    if (!loop_.Reachable(form)) {
      const Form* front = loop_.Front();
      Refuse(Spoken(form) + " is behind " + (front == nullptr ? "nothing" : Spoken(*front)) +
             " or minimized");
    }
    if (!form.Window.Enabled && !evenDisabled) {
      Refuse(Spoken(form) + " takes no input: its window is disabled");
    }
  }

  QWidget* CheckControl(const Control& control) {
    CheckForm(control.Owner());
    CloseMenuLeftOpen();
    QWidget* widget = loop_.WidgetOf(control);
    if (widget == nullptr) Refuse(Spoken(control) + " has no place in its window");
    if (!control.InSight() || !widget->isVisible()) Refuse(Spoken(control) + " is hidden");
    if (!control.InUse()) Refuse(Spoken(control) + " is disabled");
    if (SeenOf(widget).isEmpty()) Refuse(Spoken(control) + " lies out of sight");
    return widget;
  }

  // A place where the mouse meets this control and no other one that lies over it.
  QPoint FreePlace(const Control& control, QWidget* widget) {
    QWidget* surface = SurfaceOf(widget);
    const QRect all = SeenOf(surface);
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
    Refuse(Spoken(control) + " is covered by other controls, or nothing there takes the mouse");
  }

  // A place that the caller has chosen, and none beside it. The edge belongs to the last pixel.
  QPointF ChosenPlace(const Control& control, QWidget* surface, int at) {
    const QRect all = surface->rect();
    const QPoint place = PlaceAt(control, surface, at).toPoint();
    const QPoint inside(std::min(place.x(), all.right()), std::min(place.y(), all.bottom()));
    if (!Meets(surface, inside)) {
      Refuse(Spoken(control) + " cannot be reached at " + std::to_string(at) +
             ": it is covered there, or out of sight");
    }
    return inside;
  }

  bool Held = false;
  std::optional<std::int64_t> Moment;  // of the hands

 private:
  static bool Meets(const QWidget* surface, QPoint place) {
    const QWidget* window = surface->window();
    const QPoint inWindow = surface->mapTo(window, place);
    return window->rect().contains(inWindow) && window->childAt(inWindow) == surface;
  }

  // A click beside an open menu closes it before it does anything else.
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

// In a list the row that it stands on is meant.
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
  // The control may follow the mouse, whose way stays where it was.
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

// The label may follow the mouse, so the places are those of the screen.
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

// The program may turn in the handler of the press until the release has come, so that is on its
// way before.
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
  if (control.Kind() != ControlKind::TextBox) Refuse(Spoken(control) + " takes no text");
  const QPointer<QWidget> widget = fingers_->CheckControl(control);
  fingers_->FreePlace(control, widget);
  std::vector<std::function<void()>> steps;
  const auto stroke = [&](const keys::Stroke& key) {
    steps.emplace_back([=] { SendKey(widget, QEvent::KeyPress, key); });
    steps.emplace_back([=] { SendKey(widget, QEvent::KeyRelease, key); });
  };
  steps.emplace_back([=] {
    if (widget != nullptr) widget->setFocus(Qt::MouseFocusReason);
  });
  stroke(*keys::Parse(L"Ctrl+A"));
  stroke(*keys::Parse(L"Delete"));
  for (const QChar character : look::FromText(text)) stroke(keys::Writing(character));
  fingers_->Do(std::move(steps));
}

void QtHands::Select(Control& control, const std::vector<int>& rows) {
  Settle();
  const QPointer<QWidget> widget = fingers_->CheckControl(control);
  auto* combo = qobject_cast<QComboBox*>(widget.data());
  auto* view = qobject_cast<QAbstractItemView*>(widget.data());
  if (combo == nullptr && view == nullptr) Refuse(Spoken(control) + " has no rows");
  const QAbstractItemModel* model = combo != nullptr ? combo->model() : view->model();
  for (const int row : rows) {
    if (row < 1 || row > model->rowCount()) {
      Refuse(Spoken(control) + " has no row " + std::to_string(row));
    }
  }
  if (combo != nullptr) {
    if (rows.size() != 1) Refuse(Spoken(control) + " takes exactly one row");
    SelectInCombo(widget, rows.front());
    return;
  }
  if (rows.size() > 1 && view->selectionMode() == QAbstractItemView::SingleSelection) {
    Refuse(Spoken(control) + " takes one row only");
  }
  SelectInView(widget, rows);
}

// By the keyboard in the list that drops down; only Return chooses.
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
                  SendKey(list, QEvent::KeyPress, *keys::Parse(L"Home"));
                  for (int i = 1; i < row; ++i) {
                    SendKey(list, QEvent::KeyPress, *keys::Parse(L"Down"));
                  }
                  SendKey(list, QEvent::KeyPress, *keys::Parse(L"Return"));
                }});
}

// A click on the first row and a click with Ctrl held on every other.
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
  const std::optional<keys::Stroke> stroke = keys::Parse(key);
  if (!stroke) Refuse("there is no key " + look::FromText(key).toStdString());
  fingers_->CheckForm(form, form.EscapeWhileDisabled && stroke->Key == Qt::Key_Escape);
  const auto target = [fingers = fingers_, &form]() -> QPointer<QWidget> {
    QtEventLoop& loop = fingers->loop();
    const auto& forms = loop.Forms();
    if (std::find(forms.begin(), forms.end(), &form) == forms.end()) return nullptr;
    if (QMenu* menu = loop.OpenMenu()) return menu;
    QWidget* window = loop.WindowOf(form);
    if (window == nullptr) return nullptr;
    return window->focusWidget() == nullptr ? window : window->focusWidget();
  };
  const auto pressed = std::make_shared<QPointer<QWidget>>();
  fingers_->Do({[=] {
                  *pressed = target();
                  SendKey(*pressed, QEvent::KeyPress, *stroke);
                },
                [=] { SendKey(*pressed, QEvent::KeyRelease, *stroke); }});
}

void QtHands::ChooseMenu(Form& form, const Text& item) {
  Settle();
  fingers_->CheckForm(form);
  const QPointer<QMenu> menu = fingers_->loop().OpenMenu();
  if (menu == nullptr) Refuse(Spoken(form) + " has no menu open");
  const QString wanted = look::Plain(item);
  const QList<QAction*> actions = menu->actions();
  for (QAction* action : actions) {
    const QString shown = action->text().replace(QLatin1String("&&"), QLatin1String("&"));
    if (shown != wanted && action->objectName() != look::FromText(item)) continue;
    if (!action->isEnabled()) Refuse("the menu's " + wanted.toStdString() + " is disabled");
    fingers_->Do({[menu, chosen = QPointer<QAction>(action)] {
      if (menu == nullptr || chosen == nullptr) return;
      menu->setActiveAction(chosen);
      SendKey(QPointer<QWidget>(menu), QEvent::KeyPress, *keys::Parse(L"Return"));
    }});
    return;
  }
  Refuse("the open menu has no " + wanted.toStdString());
}

void QtHands::Close(Form& form) {
  Settle();
  fingers_->CheckForm(form);
  const QPointer<QWidget> window = fingers_->loop().WindowOf(form);
  fingers_->Do({[=] {
    if (window != nullptr) window->close();
  }});
}

void QtHands::Drop(Control& control, const std::vector<Text>& files) {
  Settle();
  const QPointer<QWidget> widget = fingers_->CheckControl(control);
  const QPoint place = fingers_->FreePlace(control, widget);
  if (!widget->acceptDrops()) Refuse(Spoken(control) + " takes no files");
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
  if (window == nullptr || !form.Visible()) Refuse(Spoken(form) + " is not shown");
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
