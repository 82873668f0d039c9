#include "backends/headless/headless_loop.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace vantora {

namespace {

std::string Narrow(const Text& name) {
  std::string narrow;
  for (const wchar_t c : name) narrow += c < 128 ? static_cast<char>(c) : '?';
  return narrow;
}

// Sets a value for as long as this lives.
template <typename T>
class Restored {
 public:
  Restored(T& value, T meanwhile) : value_(value), before_(std::move(value)) {
    value_ = std::move(meanwhile);
  }
  ~Restored() { value_ = std::move(before_); }
  Restored(const Restored&) = delete;
  Restored& operator=(const Restored&) = delete;

 private:
  T& value_;
  T before_;
};

// The line that a list stands on is in sight, and no room is left below the last one.
void KeepInSight(ListBox& list) {
  const int lines = std::max(list.Height / kListLine, 1);
  int top = std::min(list.TopIndex(), std::max(list.ListCount() - lines, 0));
  if (list.ListIndex >= 0) top = std::clamp(top, list.ListIndex - lines + 1, list.ListIndex());
  list.TopIndex = std::max(top, 0);
}

}  // namespace

// ---- windows ----

void HeadlessLoop::Show(Form& form) {
  if (Front() == &form) return;
  Raise(form);
  Activate(form);
}

void HeadlessLoop::ShowModal(Form& form) {
  LeaveIfEnded();
  if (form.Visible()) Hide(form);
  const Restored<std::optional<std::int64_t>> outer(eventMs_, std::nullopt);
  const int token = ++nextToken_;
  modals_.push_back({&form, token});
  const auto closed = [this, token] {
    return std::none_of(modals_.begin(), modals_.end(),
                        [token](const Modal& modal) { return modal.Token == token; });
  };
  try {
    Raise(form);
    Activate(form);
    WaitFor(closed, &form);
  } catch (...) {
    std::erase_if(modals_, [token](const Modal& modal) { return modal.Token == token; });
    throw;
  }
  LeaveIfEnded();
  TellFront();
  LeaveIfEnded();
}

void HeadlessLoop::Hide(Form& form) {
  if (!form.Visible()) return;
  SetVisible(form, false);
  Drop(form);
}

void HeadlessLoop::Minimize(Form& form) {
  if (form.Visible()) states_[&form].Minimized = true;
}

void HeadlessLoop::BringForward(Form& form) {
  if (Front() == &form) return;
  Raise(form);
  TellFront();
}

void HeadlessLoop::Raise(Form& form) {
  std::erase(stack_, &form);
  stack_.push_back(&form);
  SetVisible(form, true);
  FormState& state = states_[&form];
  state.Minimized = false;
  state.Uncovered = true;
}

void HeadlessLoop::Drop(const Form& form) {
  std::erase(stack_, &form);
  std::erase_if(modals_, [&form](const Modal& modal) { return modal.Window == &form; });
  if (told_ == &form) told_ = nullptr;
  if (menuOwner_ == &form) menu_ = nullptr;
  const auto state = states_.find(&form);
  if (state != states_.end()) state->second.Minimized = false;
}

void HeadlessLoop::Detach(Form& form) {
  Drop(form);
  states_.erase(&form);
  std::erase_if(armed_, [&form](const auto& timer) { return timer.second.Owner == &form; });
  EventLoop::Detach(form);
}

Form* HeadlessLoop::Front() {
  for (auto form = stack_.rbegin(); form != stack_.rend(); ++form) {
    if (!states_[*form].Minimized) return *form;
  }
  return nullptr;
}

bool HeadlessLoop::Reachable(const Form& form) const {
  const auto place = std::find(stack_.begin(), stack_.end(), &form);
  if (place == stack_.end()) return false;
  return std::none_of(place + 1, stack_.end(), [this](const Form* above) {
    return std::any_of(modals_.begin(), modals_.end(),
                       [above](const Modal& modal) { return modal.Window == above; });
  });
}

void HeadlessLoop::Activate(Form& form) {
  told_ = &form;
  Deliver([&form] { form.Form_Activate(); });
  const auto& forms = Forms();
  if (std::find(forms.begin(), forms.end(), &form) == forms.end() || !form.Visible()) return;
  if (states_[&form].Focus != nullptr || !form.FirstFocus) return;
  Control* first = nullptr;
  for (Control* control : form.Controls) {
    if (!TakesFocus(*control) || !control->InSight() || !control->InUse()) continue;
    if (first == nullptr || control->TabIndex < first->TabIndex) first = control;
  }
  if (first != nullptr) SetFocus(*first);
}

void HeadlessLoop::TellFront() {
  Form* front = Front();
  if (front == told_ || ended_) return;
  told_ = front;
  if (front == nullptr) return;
  states_[front].Uncovered = true;
  Deliver([front] { front->Form_GotFocus(); });
}

// ---- focus and menus ----

bool HeadlessLoop::TakesFocus(const Control& control) {
  switch (control.Kind()) {
    case ControlKind::TextBox:
    case ControlKind::CheckBox:
    case ControlKind::OptionButton:
    case ControlKind::ComboBox:
    case ControlKind::ListBox:
    case ControlKind::ListView:
    case ControlKind::Slider:
      return true;
    case ControlKind::Label:
      return static_cast<const Label&>(control).TabStop;
    case ControlKind::PictureButton:  // a plain picture has no handler
      return static_cast<const PictureButton&>(control).TabStop &&
             (control.MouseUp || control.MouseDown || control.Click);
    case ControlKind::PictureBox:
      return static_cast<bool>(control.KeyDown);
    default:
      return false;
  }
}

void HeadlessLoop::SetFocus(Control& control) {
  if (!TakesFocus(control) || !control.InSight() || !control.InUse()) return;
  Control* before = Focus(control.Owner());
  if (before == &control) return;
  states_[&control.Owner()].Focus = &control;
  const std::function<void()> lost = before == nullptr ? nullptr : before->LostFocus;
  if (lost) Deliver(lost);
  if (Alive(control) && Focus(control.Owner()) == &control && control.GotFocus) {
    Deliver(std::function<void()>(control.GotFocus));
  }
}

Control* HeadlessLoop::Focus(const Form& form) const {
  const auto state = states_.find(&form);
  return state == states_.end() ? nullptr : state->second.Focus;
}

bool HeadlessLoop::Alive(const Control& control) const {
  return std::any_of(Forms().begin(), Forms().end(), [&control](const Form* form) {
    return std::find(form->Controls.begin(), form->Controls.end(), &control) !=
           form->Controls.end();
  });
}

void HeadlessLoop::PopupMenu(Form& form, Menu& menu) {
  if (!form.Visible()) return;
  menuOwner_ = &form;
  menu_ = &menu;
}

Menu* HeadlessLoop::OpenMenu(const Form& form) const {
  return menuOwner_ == &form ? menu_ : nullptr;
}

// ---- waiting ----

void HeadlessLoop::Run() {
  quit_ = false;
  try {
    WaitFor([this] { return quit_; }, nullptr);
    LeaveIfEnded();
  } catch (const ProgrammEnde&) {
    if (stopped_) throw std::logic_error(*stopped_);
    throw;
  }
}

void HeadlessLoop::WaitFor(const std::function<bool()>& done, const Form* modal) {
  while (!done()) {
    LeaveIfEnded();
    CountTurn();
    if (RunOne()) continue;
    TellFront();
    Paint();
    if (done() || ended_) continue;
    if (TheUser == nullptr || TheUser->Resting()) {
      if (Jump(clock_.Ticks() + MaxVirtualMs)) continue;
      const std::string where = modal == nullptr ? "the main loop" : Narrow(modal->Name);
      Stop(where + " would wait for ever: no user is there, and no timer is due");
    }
    if (AskUser() || done() || ended_) continue;
    if (modal != nullptr) {
      leftOpen_ = modal->Name;
      ended_ = true;
    } else {
      quit_ = true;
    }
  }
}

// What goes wrong with the user is no error of the program: no handler on the way out may show it.
bool HeadlessLoop::AskUser() {
  try {
    return TheUser->Act(Front());
  } catch (const std::exception& error) {
    stopped_ = error.what();
    ended_ = true;
    throw;
  }
}

void HeadlessLoop::DoEvents() {
  LeaveIfEnded();
  CountTurn();
  bool idle = true;
  while (!ended_ && RunOne()) {
    idle = false;
    CountTurn();
  }
  LeaveIfEnded();
  TellFront();
  Paint();
  // Without this a program that turns until a time is over would turn for ever.
  if (idle) Advance(1);
  LeaveIfEnded();
}

void HeadlessLoop::Sleep(int ms) {
  LeaveIfEnded();
  CountTurn();
  Advance(ms);
}

void HeadlessLoop::Pass(int ms) {
  const std::int64_t until = clock_.Ticks() + ms;
  do {
    while (!ended_ && RunOne()) CountTurn();
    if (ended_) return;
    TellFront();
    Paint();
  } while (Jump(until));
  if (!ended_) Advance(until - clock_.Ticks());
}

void HeadlessLoop::Post(std::function<void()> work) {
  const std::lock_guard<std::mutex> lock(postedMutex_);
  posted_.push_back(std::move(work));
}

void HeadlessLoop::PostAfter(int ms, std::function<void()> work) {
  delayed_.emplace(clock_.Ticks() + std::max(ms, 0), std::move(work));
}

void HeadlessLoop::Deliver(const std::function<void()>& handler) {
  Dispatch(handler);
  if (stopped_) throw std::logic_error(*stopped_);
}

// Runs the one event that comes first of all that are due; false when none is.
bool HeadlessLoop::RunOne() {
  const Restored<std::optional<std::int64_t>> outer(eventMs_, std::nullopt);
  std::function<void()> work;
  {
    const std::lock_guard<std::mutex> lock(postedMutex_);
    if (!posted_.empty()) {
      work = std::move(posted_.front());
      posted_.pop_front();
    }
  }
  if (work) {
    Deliver(work);
    return true;
  }
  ArmTimers();
  const std::optional<std::int64_t> due = NextDue();
  if (!due || *due > clock_.Ticks()) return false;
  if (!delayed_.empty() && delayed_.begin()->first == *due) {
    work = std::move(delayed_.begin()->second);
    delayed_.erase(delayed_.begin());
    eventMs_ = *due;
    Deliver(work);
    return true;
  }
  for (auto& [timer, state] : armed_) {
    if (state.Due != *due) continue;
    // A timer that came late does not make up for what it missed.
    state.Due = clock_.Ticks() + state.Interval;
    if (timer->OnTimer) Deliver(std::function<void()>(timer->OnTimer));
    break;
  }
  return true;
}

// Time passes only after a call of this, so a timer counts from the moment when it was enabled.
void HeadlessLoop::ArmTimers() {
  for (Form* form : Forms()) {
    FormState& state = states_[form];
    if (state.ControlCount != form->Controls.size()) {
      state.ControlCount = form->Controls.size();
      state.Timers.clear();
      for (Control* control : form->Controls) {
        if (control->Kind() == ControlKind::Timer) {
          state.Timers.push_back(static_cast<Timer*>(control));
        }
      }
      std::erase_if(armed_, [&](const auto& entry) {
        const auto& all = state.Timers;
        return entry.second.Owner == form &&
               std::find(all.begin(), all.end(), entry.first) == all.end();
      });
    }
    for (Timer* timer : state.Timers) {
      const int interval = timer->Enabled ? timer->Interval() : 0;
      const auto armed = armed_.find(timer);
      if (interval <= 0) {
        if (armed != armed_.end()) armed_.erase(armed);
      } else if (armed == armed_.end() || armed->second.Interval != interval ||
                 armed->second.Starts != timer->Starts) {
        armed_[timer] = {form, interval, timer->Starts, clock_.Ticks() + interval};
      }
    }
  }
}

std::optional<std::int64_t> HeadlessLoop::NextDue() const {
  std::optional<std::int64_t> next;
  if (!delayed_.empty()) next = delayed_.begin()->first;
  for (const auto& [timer, state] : armed_) next = std::min(next.value_or(state.Due), state.Due);
  return next;
}

// To the next event, when one is due by `latest`.
bool HeadlessLoop::Jump(std::int64_t latest) {
  ArmTimers();
  const std::optional<std::int64_t> next = NextDue();
  if (!next || *next > latest) return false;
  Advance(*next - clock_.Ticks());
  return true;
}

void HeadlessLoop::Advance(std::int64_t ms) {
  ArmTimers();
  clock_.Advance(ms);
  if (clock_.Ticks() > MaxVirtualMs) {
    Stop("the program has run for " + std::to_string(MaxVirtualMs) +
         " ms of virtual time without an end");
  }
}

void HeadlessLoop::Paint() {
  const std::vector<Form*> shown = stack_;
  for (Form* form : shown) {
    const auto state = states_.find(form);
    if (state == states_.end() || state->second.Minimized || !form->Visible()) continue;
    if (std::exchange(state->second.Uncovered, false)) {
      Deliver([form] { form->Form_Paint(); });
      if (states_.find(form) == states_.end()) continue;
    }
    if (!std::exchange(form->Dirty, false)) continue;
    for (Control* control : form->Controls) {
      if (!control->Dirty) continue;
      if (auto* list = dynamic_cast<ListBox*>(control)) KeepInSight(*list);
      control->Dirty = false;
      ++paints_;
    }
    if (std::exchange(form->Window.Dirty, false)) ++paints_;
  }
}

void HeadlessLoop::CountTurn() {
  if (++turns_ > MaxTurns) {
    Stop("the program goes round and round: " + std::to_string(MaxTurns) + " turns without an end");
  }
}

void HeadlessLoop::Stop(const std::string& why) {
  stopped_ = why;
  ended_ = true;
  throw std::logic_error(why);
}

}  // namespace vantora
