#include "backends/qt/loop/loop_core.h"

#include "backends/qt/look/look.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QIcon>
#include <QScopedValueRollback>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <chrono>
#include <utility>

namespace vantora {

namespace {

constexpr int kIconSides[] = {32, 128};
constexpr int kRounds = 8;             // of events in one DoEvents: more may come for ever
constexpr int kActivationMs = 40;      // window managers hand the focus round before it stays
constexpr int kAwayMs = 300;           // shorter than this nobody was in another program
constexpr int kUserPatienceMs = 200;   // a user acts even while the program is never quite idle
constexpr int kUserPatienceTurns = 8;  // but not before it has answered what he did last

}  // namespace

QtEventLoop::Core::Core(QtEventLoop& loop, const std::filesystem::path& pictures,
                        const std::filesystem::path& drawn, double speed)
    : agenda(speed, [this] { QCoreApplication::postEvent(this, new QEvent(QEvent::User)); }),
      loop_(loop),
      pictures_(pictures, drawn) {
  look::Dress();
  ShowIcon();
  QApplication::setQuitOnLastWindowClosed(false);
  wake_.setSingleShot(true);
  wake_.setTimerType(Qt::PreciseTimer);
  activation_.setSingleShot(true);
  activation_.setInterval(kActivationMs);
  connect(&activation_, &QTimer::timeout, this, [this] { FollowActivation(); });
  connect(qApp, &QGuiApplication::applicationStateChanged, this,
          [this](Qt::ApplicationState state) { FollowApplication(state); });
}

QtEventLoop::Core::~Core() {
  Point(Pointer::Normal);
  for (const auto& [form, window] : windows_) delete window;
  for (FormWindow* window : graves_) delete window;
}

void QtEventLoop::Core::ShowIcon() {
  QIcon icon;
  // The application outlives the store of the pictures, so it gets copies.
  for (const int side : kIconSides) {
    icon.addPixmap(pictures_.Get(L"vantora", {side, side}, 1).copy());
  }
  QApplication::setWindowIcon(icon);
}

// ---- windows ----

FormWindow* QtEventLoop::Core::WindowOf(const Form& form) const {
  const auto found = windows_.find(&form);
  return found == windows_.end() ? nullptr : found->second;
}

QRect QtEventLoop::Core::Room(const QWidget& window) const {
  Display* stage = loop_.Stage;
  if (stage == nullptr) return window.screen()->availableGeometry();
  return {0, 0, static_cast<int>(stage->Width() / stage->TwipsPerPixelX()),
          static_cast<int>(stage->Height() / stage->TwipsPerPixelY())};
}

FormWindow& QtEventLoop::Core::Ensure(Form& form) {
  FormWindow*& window = windows_[&form];
  if (window == nullptr) window = new FormWindow(form, *this);
  return *window;
}

void QtEventLoop::Core::Present(Form& form, bool modal) {
  FormWindow& window = Ensure(form);
  Form* before = Front();
  if (before == &form) before = nullptr;
  const auto modality = modal ? Qt::ApplicationModal : Qt::NonModal;
  if (window.windowModality() != modality) {
    window.hide();
    window.setWindowModality(modality);
  }
  window.Sync();
  window.winId();  // makes the native window, which then learns whom it stands in front of
  FormWindow* behind = before == nullptr ? nullptr : WindowOf(*before);
  if (!window.isVisible() && window.windowHandle() != nullptr) {
    window.windowHandle()->setTransientParent(behind == nullptr ? nullptr : behind->windowHandle());
  }
  if (!window.isVisible() && behind != nullptr) window.StandOver(*behind);
  window.Sync();
  SetVisible(form, true);
  minimized_.erase(&form);
  std::erase(stack_, &form);
  stack_.push_back(&form);
  GiveFirstFocus(window);
  if (window.isMinimized()) {
    window.Restore();
  } else {
    window.show();
  }
  told_ = &form;
  uncovered_.push_back(&form);
  BringFrontUp();
  Handle([&] { form.Form_Activate(); });
}

// The first control of the focus order, unless the program has chosen one or wants none: then the
// window keeps the focus itself, as the toolkit would give it to a control.
void QtEventLoop::Core::GiveFirstFocus(FormWindow& window) {
  if (window.isVisible()) return;
  window.OrderFocus();
  if (window.FocusControl() != nullptr) return;
  if (!window.form()->FirstFocus) {
    window.setFocus(Qt::OtherFocusReason);
    return;
  }
  const Control* first = nullptr;
  for (const Control* control : window.form()->Controls) {
    const Face* face = window.FaceOf(*control);
    if (face == nullptr || face->widget()->focusPolicy() == Qt::NoFocus) continue;
    if (!control->InUse() || !control->InSight()) continue;
    if (first == nullptr || control->TabIndex < first->TabIndex) first = control;
  }
  if (first != nullptr) window.FocusOn(*first);
}

bool QtEventLoop::Core::ModalOpen(int token) const {
  return std::any_of(modals_.begin(), modals_.end(),
                     [&](const Modal& modal) { return modal.Token == token; });
}

void QtEventLoop::Core::ShowModal(Form& form) {
  loop_.LeaveIfEnded();
  if (form.Visible()) Hide(form);
  const int token = ++nextToken_;
  modals_.push_back({&form, token});
  Present(form, true);
  Wait([&] { return !ModalOpen(token); }, &form);
  std::erase_if(modals_, [&](const Modal& modal) { return modal.Token == token; });
  loop_.LeaveIfEnded();
  TellFront();
  loop_.LeaveIfEnded();
}

void QtEventLoop::Core::Hide(Form& form) {
  if (!form.Visible()) return;
  SetVisible(form, false);
  std::erase(stack_, &form);
  std::erase_if(modals_, [&](const Modal& modal) { return modal.Window == &form; });
  minimized_.erase(&form);
  if (menuOwner_ == &form && menu != nullptr) menu->close();
  if (FormWindow* window = WindowOf(form)) window->hide();
  BringFrontUp();
}

void QtEventLoop::Core::Minimize(Form& form) {
  FormWindow* window = WindowOf(form);
  if (!form.Visible() || window == nullptr) return;
  minimized_.insert(&form);
  window->showMinimized();
}

void QtEventLoop::Core::Restored(Form& form) {
  if (minimized_.erase(&form) == 0) return;
  std::erase(stack_, &form);
  stack_.push_back(&form);
  told_ = nullptr;
}

void QtEventLoop::Core::Forget(Form& form) {
  Hide(form);
  agenda.Forget(form);
  if (told_ == &form) told_ = nullptr;
  std::erase(uncovered_, &form);
  const auto found = windows_.find(&form);
  if (found == windows_.end()) return;
  FormWindow* window = found->second;
  windows_.erase(found);
  window->Orphan();
  graves_.push_back(window);
  if (depth_ == 0) Bury();
}

void QtEventLoop::Core::Bury() {
  std::erase_if(graves_, [](FormWindow* window) {
    if (window->Busy()) return false;
    delete window;
    return true;
  });
}

Form* QtEventLoop::Core::Front() const {
  for (auto form = stack_.rbegin(); form != stack_.rend(); ++form) {
    if (minimized_.count(*form) == 0) return *form;
  }
  return nullptr;
}

bool QtEventLoop::Core::Blocked(const Form& form) const {
  if (loop_.Ended()) return true;
  for (auto above = stack_.rbegin(); above != stack_.rend() && *above != &form; ++above) {
    const bool modal = std::any_of(modals_.begin(), modals_.end(),
                                   [&](const Modal& open) { return open.Window == *above; });
    if (modal) return true;
  }
  return false;
}

bool QtEventLoop::Core::Alive(const Control& control) const {
  for (const Form* form : loop_.Forms()) {
    const auto& all = form->Controls;
    if (std::find(all.begin(), all.end(), &control) != all.end()) return true;
  }
  return false;
}

void QtEventLoop::Core::SetFocus(Control& control) {
  FormWindow& window = Ensure(control.Owner());
  window.Sync();
  window.FocusOn(control);
}

void QtEventLoop::Core::PopupMenu(Form& form, const Menu& shown) {
  FormWindow* window = WindowOf(form);
  if (window == nullptr || !form.Visible()) return;
  if (menu != nullptr) menu->close();
  menu = new QMenu(window);
  menu->setStyleSheet(look::MenuSheet());
  menuOwner_ = &form;
  menu->setObjectName(look::FromText(shown.Name));
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (const MenuItem& item : shown.Items) {
    if (item.Caption == L"-") {
      menu->addSeparator();
      continue;
    }
    QAction* action = menu->addAction(look::Plain(item.Caption).replace(u'&', QLatin1String("&&")));
    action->setObjectName(look::FromText(item.Name));
    action->setEnabled(item.Enabled);
    // The handler runs when the menu has gone, so that it can open windows.
    connect(action, &QAction::triggered, window, [window, click = item.Click] {
      window->host().Later([self = QPointer<FormWindow>(window), click] {
        if (self != nullptr && click) self->Handle(click);
      });
    });
  }
  const QPoint touch = window->LastTouch();
  const bool onWindow = window->rect().contains(window->mapFromGlobal(touch));
  menu->popup(onWindow ? touch : window->mapToGlobal(window->rect().center()));
}

// ---- who is in front ----

// The program has chosen: what was activated before counts no more.
void QtEventLoop::Core::BringFrontUp() {
  away_.invalidate();
  activation_.stop();
  const Form* front = Front();
  FormWindow* window = front == nullptr ? nullptr : WindowOf(*front);
  if (window == nullptr) return;
  if (window->isMinimized() && minimized_.count(front) == 0) window->Restore();
  if (QGuiApplication::platformName() != QLatin1String("offscreen")) window->raise();
  window->activateWindow();
}

bool QtEventLoop::Core::TellFront() {
  Form* front = Front();
  if (front == told_ || loop_.Ended()) return false;
  told_ = front;
  if (front == nullptr) return false;
  BringFrontUp();
  Handle([&] { front->Form_GotFocus(); });
  if (front == Front()) Handle([&] { front->Form_Paint(); });
  return true;
}

// What is shown is painted at the next turn, when its window stands.
bool QtEventLoop::Core::PaintUncovered() {
  if (uncovered_.empty() || loop_.Ended()) return false;
  Form* form = uncovered_.front();
  std::erase(uncovered_, form);
  if (form->Visible()) Handle([&] { form->Form_Paint(); });
  return true;
}

// A person has chosen another window of the program.
void QtEventLoop::Core::FollowActivation() {
  const QWidget* active = QApplication::activeWindow();
  for (const auto& [form, window] : windows_) {
    if (window != active || form == Front() || !form->Visible()) continue;
    if (Blocked(*form) || !form->Window.Enabled) {
      BringFrontUp();
      return;
    }
    Form* chosen = window->form();
    std::erase(stack_, chosen);
    stack_.push_back(chosen);
    return;
  }
}

void QtEventLoop::Core::FollowApplication(Qt::ApplicationState state) {
  if (state != Qt::ApplicationActive) {
    if (!away_.isValid()) away_.start();
    return;
  }
  if (away_.isValid() && away_.hasExpired(kAwayMs)) told_ = nullptr;
  away_.invalidate();
}

// ---- turning ----

void QtEventLoop::Core::Handle(const std::function<void()>& handler) {
  if (loop_.Ended()) return;
  ++depth_;
  loop_.Dispatch(handler);
  --depth_;
}

void QtEventLoop::Core::Sync() {
  for (Form* form : loop_.Forms()) {
    FormWindow* window = WindowOf(*form);
    if (form->Dirty) agenda.Arm(*form);
    if (window != nullptr) {
      window->Sync();
    } else {
      form->Dirty = false;  // the controls stay dirty until the window is made
    }
  }
}

bool QtEventLoop::Core::ProcessEvents() {
  return QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents);
}

std::int64_t QtEventLoop::Core::NowMs() const {
  const std::chrono::duration<double, std::milli> now =
      std::chrono::steady_clock::now().time_since_epoch();
  return static_cast<std::int64_t>(now.count() * agenda.Speed());
}

// No event is handled before it comes about, so the shortest delay seen shows best how the window
// system's clock stands to ours.
std::uint64_t QtEventLoop::Core::Stamp(std::uint64_t stamp) {
  if (stamp != 0) {
    const std::int64_t behind = NowMs() - static_cast<std::int64_t>(stamp);
    behind_ = behind_ ? std::min(*behind_, behind) : behind;
  }
  return std::exchange(stamp_, stamp != 0 ? stamp : handStamp_);
}

void QtEventLoop::Core::ActAt(std::int64_t ms, const std::function<void()>& work) {
  const QScopedValueRollback<std::uint64_t> acting(handStamp_, static_cast<std::uint64_t>(ms));
  work();
}

// Some events bear no stamp, such as the press of a screen reader.
std::int64_t QtEventLoop::Core::EventMs() const {
  return stamp_ != 0 ? static_cast<std::int64_t>(stamp_) : NowMs() - behind_.value_or(0);
}

bool QtEventLoop::Core::Turn() {
  // What is handled inside of an event's handler is no part of it.
  const QScopedValueRollback<std::uint64_t> outer(stamp_, 0), hands(handStamp_, 0);
  Sync();
  bool busy = agenda.RunDue([this](const std::function<void()>& work) { Handle(work); },
                            [this] { return loop_.Ended(); });
  Sync();
  busy = ProcessEvents() || busy;
  busy = TellFront() || busy;
  busy = PaintUncovered() || busy;
  Bury();
  return busy;
}

void QtEventLoop::Core::DoEvents() {
  loop_.LeaveIfEnded();
  Turn();
  Sync();
  for (int round = 0; round < kRounds && !loop_.Ended() && ProcessEvents(); ++round) Sync();
  loop_.LeaveIfEnded();
}

void QtEventLoop::Core::Run() {
  quit = false;
  Wait([this] { return quit; }, nullptr);
  loop_.LeaveIfEnded();
}

void QtEventLoop::Core::Wait(const std::function<bool()>& done, const Form* modal) {
  sinceAsked_.start();
  int turns = 0;
  while (!done() && !loop_.Ended()) {
    const bool busy = Turn();
    if (done() || loop_.Ended()) break;
    const bool asking = loop_.TheUser != nullptr && !loop_.TheUser->Resting();
    const bool patient = ++turns < kUserPatienceTurns || !sinceAsked_.hasExpired(kUserPatienceMs);
    if (busy && (patient || !asking)) continue;
    if (asking) {
      AskUser(modal);
      turns = 0;
    } else {
      Block();
    }
  }
}

void QtEventLoop::Core::AskUser(const Form* modal) {
  sinceAsked_.start();
  bool more = false;
  loop_.Dispatch([&] { more = loop_.TheUser->Act(Front()); });
  if (more) return;
  if (modal == nullptr) {
    quit = true;
    return;
  }
  leftOpen = modal->Name;
  loop_.ended_ = true;
}

void QtEventLoop::Core::Block() {
  if (agenda.AnyPosted()) return;
  wake_.stop();
  if (const auto ms = agenda.MsToNext()) {
    if (*ms == 0) return;
    wake_.start(*ms);
  }
  QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents |
                                                      QEventLoop::WaitForMoreEvents);
}

void QtEventLoop::Core::Point(Pointer shown) {
  if (shown == pointer) return;
  if (pointer != Pointer::Normal) QApplication::restoreOverrideCursor();
  pointer = shown;
  if (shown == Pointer::Normal) return;
  QApplication::setOverrideCursor(shown == Pointer::Hourglass ? Qt::WaitCursor
                                  : shown == Pointer::SizeWE  ? Qt::SizeHorCursor
                                                              : Qt::BusyCursor);
}

Text QtEventLoop::Core::PathOfFile(const QString& file) const {
  if (loop_.PathOfFile) return loop_.PathOfFile(file.toStdString());
  return look::ToText(file);
}

}  // namespace vantora
