#include "backends/qt/loop/loop_core.h"

#include "backends/qt/look/look.h"
#include "backends/qt/loop/menu_words.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QIcon>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <chrono>
#include <cmath>

namespace vantora {

namespace {

constexpr int kIconSides[] = {32, 128};
constexpr int kRounds = 8;         // rounds of events in one DoEvents; events may never stop coming
constexpr int kActivationMs = 40;  // a window manager may move the focus several times first
constexpr int kAwayMs = 300;       // a shorter absence is no visit to another program
constexpr std::int64_t kUsPerMs = 1000;
constexpr double kLongestRestMs = 3'600'000;

// The toolkit's painting leaves values in the upper halves of the vector registers. The processor
// then preserves these halves in every plain floating-point instruction, so that each instruction
// waits for an earlier one, and the product's arithmetic takes several times as long.
void ClearVectorRegisters() {
#if defined(__x86_64__)
  if (__builtin_cpu_supports("avx")) __asm__ volatile("vzeroupper");
#endif
}

}  // namespace

QtEventLoop::Core::Core(const std::filesystem::path& pictures, const std::filesystem::path& drawn,
                        double wantedSpeed)
    : speed(wantedSpeed > 0 ? wantedSpeed : 1), pictures_(pictures, drawn) {
  look::Dress();
  ShowIcon();
  QApplication::setQuitOnLastWindowClosed(false);
  qApp->installEventFilter(&heldKeys_);
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
  // The application lives longer than the store of the pictures, so the icon gets copies.
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
  Display* stage = loop_->Stage;
  if (stage == nullptr) return window.screen()->availableGeometry();
  return {0, 0, static_cast<int>(stage->Width() / stage->TwipsPerPixelX()),
          static_cast<int>(stage->Height() / stage->TwipsPerPixelY())};
}

FormWindow& QtEventLoop::Core::Ensure(Form& form) {
  FormWindow*& window = windows_[&form];
  if (window == nullptr) window = new FormWindow(form, *this);
  return *window;
}

void QtEventLoop::Core::Appear(Form& form, bool modal, Form* behind) {
  FormWindow& window = Ensure(form);
  if (modal && menu != nullptr) menu->close();
  const auto modality = modal ? Qt::ApplicationModal : Qt::NonModal;
  if (window.windowModality() != modality) {
    window.hide();
    window.setWindowModality(modality);
  }
  window.Sync();
  window.winId();  // creates the native window, which setTransientParent needs
  FormWindow* owner = behind == nullptr ? nullptr : WindowOf(*behind);
  if (!window.isVisible() && window.windowHandle() != nullptr) {
    QWindow* parent = owner == nullptr ? nullptr : owner->windowHandle();
    // The toolkit does not end when windows stand over each other in a circle.
    if (parent != nullptr && window.windowHandle()->isAncestorOf(parent)) parent = nullptr;
    window.windowHandle()->setTransientParent(parent);
  }
  if (!window.isVisible() && owner != nullptr) {
    if (form.KeepClear != nullptr) owner->Sync();  // shows the row that is selected now
    window.StandOver(*owner);
  }
  window.Sync();
  GiveFirstFocus(window);
  if (window.isMinimized()) {
    window.Restore();
  } else {
    window.show();
  }
  ComeForward(form);
}

// Gives the focus to the first control of the focus order, unless the program has chosen a control.
// In a form without a first focus the window itself gets the focus, because the toolkit would
// otherwise give the focus to a control.
void QtEventLoop::Core::GiveFirstFocus(FormWindow& window) {
  if (window.isVisible()) return;
  if (window.FocusControl() != nullptr) return;
  if (!window.form()->FirstFocus) {
    window.setFocus(Qt::OtherFocusReason);
    return;
  }
  if (const Control* first = FirstFocus(*window.form())) window.FocusOn(*first);
}

void QtEventLoop::Core::Vanish(Form& form) {
  if (menuOwner_ == &form && menu != nullptr) menu->close();
  if (FormWindow* window = WindowOf(form)) window->hide();
}

void QtEventLoop::Core::Iconify(Form& form) {
  if (FormWindow* window = WindowOf(form)) window->showMinimized();
}

void QtEventLoop::Core::Bring(Form& form) {
  if (FormWindow* window = WindowOf(form)) {
    window->Sync();
  } else {
    form.Dirty = false;  // the controls stay dirty until the window is created
  }
}

void QtEventLoop::Core::Gone(Form& form) {
  const auto found = windows_.find(&form);
  if (found == windows_.end()) return;
  FormWindow* window = found->second;
  windows_.erase(found);
  window->Orphan();
  graves_.push_back(window);
  if (!model_->Handling()) Bury();
}

void QtEventLoop::Core::Bury() {
  std::erase_if(graves_, [](FormWindow* window) {
    if (window->Busy()) return false;
    delete window;
    return true;
  });
}

void QtEventLoop::Core::FocusOn(Control& control) {
  FormWindow& window = Ensure(control.Owner());
  window.Sync();
  window.FocusOn(control);
}

Control* QtEventLoop::Core::FocusOf(const Form& form) const {
  const FormWindow* window = WindowOf(form);
  return window == nullptr ? nullptr : window->FocusControl();
}

void QtEventLoop::Core::FocusReported(Control& control, bool came) {
  const FormWindow* window = WindowOf(control.Owner());
  if (Face* face = window == nullptr ? nullptr : window->FaceOf(control)) face->FocusChanged(came);
}

void QtEventLoop::Core::PopupMenu(Form& form, Menu& shown) {
  FormWindow* window = WindowOf(form);
  if (window == nullptr) return;
  if (menu != nullptr) menu->close();
  menu = new QMenu(window);
  menu->setStyleSheet(look::MenuSheet());
  menuOwner_ = &form;
  menu->setObjectName(look::FromText(shown.Name));
  menu->setAttribute(Qt::WA_DeleteOnClose);
  const QStringList words = MenuWords(shown.Items);
  for (std::size_t i = 0; i < shown.Items.size(); ++i) {
    const MenuItem& item = shown.Items[i];
    if (item.Caption == L"-") {
      menu->addSeparator();
      continue;
    }
    QAction* action = menu->addAction(words[static_cast<qsizetype>(i)]);
    action->setData(look::Plain(item.Caption));
    action->setObjectName(look::FromText(item.Name));
    action->setEnabled(item.Enabled);
    // The handler runs after the menu has closed, so that the handler can open windows. By then
    // another window may have come in front.
    connect(action, &QAction::triggered, window, [this, window, &form, click = item.Click] {
      model_->Post([this, self = QPointer<FormWindow>(window), &form, click] {
        if (self != nullptr && click && model_->TakesInput(form)) self->Handle(click);
      });
    });
  }
  const QPoint touch = window->LastTouch();
  const bool onWindow = window->rect().contains(window->mapFromGlobal(touch));
  menu->popup(onWindow ? touch : window->mapToGlobal(window->rect().center()));
}

// ---- the window in front ----

// The program itself chooses the window in front. An earlier activation that has not been handled
// yet is dropped.
void QtEventLoop::Core::ComeForward(Form& form) {
  away_.invalidate();
  activation_.stop();
  FormWindow* window = WindowOf(form);
  if (window == nullptr) return;
  if (window->isMinimized() && !model_->Minimized(form)) window->Restore();
  if (!IsUnseen()) window->raise();
  window->activateWindow();
}

bool QtEventLoop::Core::IsUnseen() {
  return QGuiApplication::platformName() == QLatin1String("offscreen");
}

// An off-screen display has no window manager. After a menu or a list has closed there, this
// function activates the window below.
void QtEventLoop::Core::KeepActive() {
  if (!IsUnseen() || QApplication::activePopupWidget() != nullptr) return;
  const Form* front = model_->Front();
  FormWindow* window = front == nullptr ? nullptr : WindowOf(*front);
  if (window != nullptr && !window->isActiveWindow()) window->activateWindow();
}

void QtEventLoop::Core::TurnEnds() {
  Bury();
  ShowPointer();
  KeepActive();
}

void QtEventLoop::Core::FollowActivation() {
  const QWidget* active = QApplication::activeWindow();
  for (const auto& [form, window] : windows_) {
    if (window == active && window->form() != nullptr) return model_->Chosen(*window->form());
  }
}

void QtEventLoop::Core::FollowApplication(Qt::ApplicationState state) {
  if (state != Qt::ApplicationActive) {
    if (!away_.isValid()) away_.start();
    return;
  }
  if (away_.isValid() && away_.hasExpired(kAwayMs)) model_->Returned();
  away_.invalidate();
}

// ---- time ----

std::int64_t QtEventLoop::Core::NowUs() const {
  const std::chrono::duration<double, std::micro> now =
      std::chrono::steady_clock::now().time_since_epoch();
  return static_cast<std::int64_t>(now.count() * speed);
}

std::int64_t QtEventLoop::Core::StampOf(std::int64_t us) const {
  return us / kUsPerMs - behind_.value_or(0);
}

// The clock of the window system may differ from our clock. An event is always handled after it
// occurs, so the shortest delay seen is the best estimate of the difference. An event without a
// stamp comes from a screen reader or from simulated hands. It gets the time of the event that is
// being handled.
std::optional<std::int64_t> QtEventLoop::Core::Stamp(std::uint64_t stamp) {
  if (stamp == 0) {
    const std::optional<std::int64_t> now = model_->EventBegins(std::nullopt);
    model_->EventBegins(now);
    return now;
  }
  const auto ms = static_cast<std::int64_t>(stamp);
  const std::int64_t behind = NowUs() / kUsPerMs - ms;
  behind_ = behind_ ? std::min(*behind_, behind) : behind;
  return model_->EventBegins(ms);
}

// ---- events ----

void QtEventLoop::Core::Wake() {
  QAbstractEventDispatcher::instance(thread())->wakeUp();
}

bool QtEventLoop::Core::HandleInput() {
  const bool handled = QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents);
  ClearVectorRegisters();
  return handled;
}

void QtEventLoop::Core::EndTurns(bool /*busy*/) {
  model_->Sync();
  for (int round = 0; round < kRounds && !model_->Ended() && HandleInput(); ++round) model_->Sync();
}

void QtEventLoop::Core::Rest(std::optional<std::int64_t> until, const Form* /*modal*/) {
  if (!until) {
    wake_.stop();
  } else if (!wake_.isActive() || until != wakesAt_) {
    const double ms = static_cast<double>(*until - NowUs()) / kUsPerMs / speed;
    if (ms <= 0) return;
    wake_.start(static_cast<int>(std::ceil(std::min(ms, kLongestRestMs))));
    wakesAt_ = until;
  }
  QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents |
                                                      QEventLoop::WaitForMoreEvents);
}

void QtEventLoop::Core::Point(Pointer shown) {
  pointer = shown;
  ShowPointer();
}

// A modal window that takes input waits for its user, so the work behind it shows no busy pointer.
void QtEventLoop::Core::ShowPointer() {
  const Form* front = model_->Front();
  const FormWindow* window = front == nullptr ? nullptr : WindowOf(*front);
  const bool waits = window != nullptr && window->isModal() && front->Window.Enabled;
  const bool busy = pointer == Pointer::Hourglass || pointer == Pointer::ArrowHourglass;
  const Pointer wanted = waits && busy ? Pointer::Normal : pointer;
  if (wanted == shown_) return;
  if (shown_ != Pointer::Normal) QApplication::restoreOverrideCursor();
  shown_ = wanted;
  if (wanted == Pointer::Normal) return;
  QApplication::setOverrideCursor(wanted == Pointer::Hourglass ? Qt::WaitCursor
                                  : wanted == Pointer::SizeWE  ? Qt::SizeHorCursor
                                                               : Qt::BusyCursor);
}

Text QtEventLoop::Core::PathOfFile(const QString& file) const {
  if (loop_->PathOfFile) return loop_->PathOfFile(file.toStdString());
  return look::ToText(file);
}

}  // namespace vantora
