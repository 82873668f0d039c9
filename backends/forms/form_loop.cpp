#include "backends/forms/form_loop.h"

#include "backends/forms/restored.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace vantora {

namespace {

// If a program is never idle, the user acts after this time and this number of turns. Where time
// stands still while the program works, a very large number of turns is enough.
constexpr std::int64_t kPatienceUs = 4'000'000;
constexpr int kPatienceTurns = 8;
constexpr int kEndlessTurns = 100'000;

}  // namespace

FormLoop::FormLoop(std::unique_ptr<World> world)
    : world_(std::move(world)),
      agenda_([this] { return world_->NowUs(); }, [this] { world_->Wake(); }),
      keyboard_(*this),
      focus_([this](Control& control, bool came) { ReportFocus(control, came); }) {
  world_->Enter(*this);
}

FormLoop::~FormLoop() = default;

// ---- windows ----

void FormLoop::Show(Form& form) {
  if (Front() != &form) Present(form, false);
}

void FormLoop::Present(Form& form, bool modal) {
  Form* behind = Front() == &form ? nullptr : Front();
  if (behind != nullptr) keyboard_.Leave(*behind);
  SetVisible(form, true);
  stack_.Raise(form);
  reported_ = &form;
  std::erase(uncovered_, &form);
  uncovered_.push_back(&form);
  world_->Appear(form, modal, behind);
  Handle([&form] { form.Form_Activate(); });
}

void FormLoop::ShowModal(Form& form) {
  LeaveIfEnded();
  if (form.Visible()) Hide(form);
  const int call = stack_.BeginModal(form);
  try {
    Present(form, true);
    Wait([this, call] { return !stack_.ModalOpen(call); }, &form);
  } catch (...) {
    stack_.EndModal(call);
    throw;
  }
  stack_.EndModal(call);
  LeaveIfEnded();
  ReportFront();
  LeaveIfEnded();
}

void FormLoop::Hide(Form& form) {
  if (!form.Visible()) return;
  keyboard_.Leave(form);
  SetVisible(form, false);
  stack_.Drop(form);
  world_->Vanish(form);
  if (Form* front = Front()) world_->ComeForward(*front);
}

void FormLoop::Minimize(Form& form) {
  if (!form.Visible()) return;
  stack_.Minimize(form);
  world_->Iconify(form);
}

void FormLoop::Detach(Form& form) {
  keyboard_.Forget(form);
  Hide(form);
  agenda_.Forget(form);
  keyboard_.Forget(form);
  focus_.Forget(form);
  std::erase(uncovered_, &form);
  if (reported_ == &form) reported_ = nullptr;
  EventLoop::Detach(form);
  world_->Gone(form);
}

void FormLoop::PopupMenu(Form& form, Menu& menu) {
  if (form.Visible()) world_->PopupMenu(form, menu);
}

bool FormLoop::Loaded(const Form& form) const {
  return std::find(Forms().begin(), Forms().end(), &form) != Forms().end();
}

bool FormLoop::Alive(const Control& control) const {
  return std::any_of(Forms().begin(), Forms().end(), [&control](const Form* form) {
    const auto& all = form->Controls;
    return std::find(all.begin(), all.end(), &control) != all.end();
  });
}

bool FormLoop::Blocked(const Form& form) const {
  return Ended() || stack_.Blocked(form);
}

bool FormLoop::Reachable(const Form& form) const {
  return Loaded(form) && form.Visible() && !Minimized(form) && !Blocked(form);
}

bool FormLoop::TakesInput(const Form& form) const {
  return Reachable(form) && form.Window.Enabled;
}

bool FormLoop::TakesInput(const Control& control) const {
  return Alive(control) && TakesInput(control.Owner()) && control.InSight() && control.InUse();
}

// ---- the front window ----

void FormLoop::BringForward(Form& form) {
  if (Front() == &form) return;
  stack_.Raise(form);
  ReportFront();
}

void FormLoop::Chosen(Form& form) {
  if (&form == Front() || !form.Visible()) return;
  if (TakesInput(form)) {
    stack_.Raise(form);
  } else if (Form* front = Front()) {
    world_->ComeForward(*front);
  }
}

void FormLoop::Restored(Form& form) {
  if (!Minimized(form)) return;
  stack_.Raise(form);
  reported_ = nullptr;
}

void FormLoop::Returned() {
  reported_ = nullptr;
}

bool FormLoop::ReportFront() {
  Form* front = Front();
  if (front == reported_ || Ended()) return false;
  for (Form* form : Forms()) {
    if (form == reported_) keyboard_.Leave(*form);
  }
  reported_ = front;
  if (front == nullptr) return false;
  world_->ComeForward(*front);
  Handle([front] { front->Form_GotFocus(); });
  if (front == Front()) Handle([front] { front->Form_Paint(); });
  return true;
}

bool FormLoop::PaintUncovered() {
  bool any = false;
  for (std::size_t count = uncovered_.size(); count > 0 && !uncovered_.empty(); --count) {
    Form* form = uncovered_.front();
    uncovered_.erase(uncovered_.begin());
    if (form->Visible()) Handle([form] { form->Form_Paint(); });
    any = true;
  }
  return any;
}

// ---- focus ----

void FormLoop::SetFocus(Control& control) {
  if (CanHaveFocus(control) && Focus(control.Owner()) != &control) world_->FocusOn(control);
}

void FormLoop::ReportFocus(Control& control, bool came) {
  if (!Alive(control)) return;
  world_->FocusReported(control, came);
  if (const auto handler = came ? control.GotFocus : control.LostFocus) Handle(handler);
}

// ---- turning ----

void FormLoop::Handle(const std::function<void()>& handler) {
  if (Ended()) return;
  ++depth_;
  Dispatch(handler);
  --depth_;
}

void FormLoop::PostAfter(int ms, std::function<void()> work) {
  agenda_.PostAfter(ms, std::move(work));
}

std::int64_t FormLoop::EventMs() const {
  return eventMs_ ? *eventMs_ : world_->StampOf(world_->NowUs());
}

std::optional<std::int64_t> FormLoop::EventBegins(std::optional<std::int64_t> ms) {
  return std::exchange(eventMs_, ms);
}

void FormLoop::ActAt(std::int64_t ms, const std::function<void()>& work) {
  const RestoredValue<std::optional<std::int64_t>> acting(eventMs_, ms);
  work();
}

void FormLoop::Sync() {
  for (std::size_t i = 0; i < Forms().size(); ++i) {
    agenda_.Arm(*Forms()[i]);
    world_->Bring(*Forms()[i]);
  }
}

bool FormLoop::RunDue() {
  const auto run = [this](const Agenda::Work& work, std::optional<std::int64_t> due) {
    if (due) due = world_->StampOf(*due);
    const RestoredValue<std::optional<std::int64_t>> at(eventMs_, due);
    Handle(work);
  };
  return agenda_.RunDue(run, [this] { return Ended(); });
}

// The handler of an event may turn the loop: the work of that turn is not part of the event.
bool FormLoop::Turn() {
  const RestoredValue<std::optional<std::int64_t>> outer(eventMs_, std::nullopt);
  Sync();
  bool busy = RunDue();
  if (busy) Sync();
  busy = world_->HandleInput() || busy;
  busy = ReportFront() || busy;
  busy = PaintUncovered() || busy;
  world_->TurnEnds();
  return busy;
}

void FormLoop::DoEvents() {
  LeaveIfEnded();
  const bool busy = Turn();
  world_->EndTurns(busy);
  LeaveIfEnded();
}

// ---- waiting ----

void FormLoop::Run() {
  quit_ = false;
  try {
    Wait([this] { return quit_; }, nullptr);
    LeaveIfEnded();
  } catch (const ProgrammEnde&) {
    ThrowIfStopped();
    throw;
  }
}

void FormLoop::Wait(const std::function<bool()>& done, const Form* modal) {
  std::int64_t asked = world_->NowUs();
  int turns = 0;
  while (!done() && !Ended()) {
    const bool busy = Turn();
    if (done() || Ended()) break;
    if (modal == nullptr && !Handling() && OnIdle) OnIdle();
    const bool asking = TheUser != nullptr && !TheUser->Resting();
    const bool waited = ++turns >= kPatienceTurns && world_->NowUs() - asked >= kPatienceUs;
    if (busy && !(asking && (waited || turns >= kEndlessTurns))) continue;
    if (!asking) {
      if (!agenda_.AnyPosted()) world_->Rest(agenda_.NextDue(), modal);
      continue;
    }
    AskUser(modal);
    asked = world_->NowUs();
    turns = 0;
  }
}

void FormLoop::AskUser(const Form* modal) {
  bool more = false;
  try {
    more = TheUser->Act(Front());
  } catch (const ProgrammEnde&) {
    ended_ = true;
  } catch (const std::exception& error) {
    stopped_ = error.what();
    ended_ = true;
  }
  if (more || Ended()) return;
  if (modal == nullptr) {
    quit_ = true;
    return;
  }
  leftOpen_ = modal->Name;
  ended_ = true;
}

void FormLoop::Stop(const std::string& why) {
  stopped_ = why;
  ended_ = true;
  throw std::logic_error(why);
}

void FormLoop::ThrowIfStopped() const {
  if (stopped_) throw std::logic_error(*stopped_);
}

}  // namespace vantora
