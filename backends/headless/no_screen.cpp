#include "backends/headless/no_screen.h"

#include "backends/forms/reach.h"
#include "backends/headless/headless_loop.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr std::int64_t kUsPerMs = 1000;

// Scrolls a list so that its current line is visible and no room is left below the last line.
void KeepInSight(ListBox& list) {
  const int lines = std::max(list.Height / kListLine, 1);
  int top = std::min(list.TopIndex(), std::max(list.ListCount() - lines, 0));
  if (list.ListIndex >= 0) top = std::clamp(top, list.ListIndex - lines + 1, list.ListIndex());
  list.TopIndex = std::max(top, 0);
}

}  // namespace

// ---- time ----

void NoScreen::CountTurn() {
  if (++turns_ <= loop_->MaxTurns) return;
  model_->Stop("the program goes round and round: " + std::to_string(loop_->MaxTurns) +
               " turns without an end");
}

bool NoScreen::HandleInput() {
  CountTurn();
  const Form* before = active_;
  Activate();
  return active_ != before;
}

// A turn without work takes a millisecond. Otherwise a program that turns the loop until a certain
// time would never end.
void NoScreen::EndTurns(bool busy) {
  model_->Sync();
  if (!busy && !model_->Ended()) Advance(1);
}

void NoScreen::Rest(std::optional<std::int64_t> until, const Form* modal) {
  if (until) return Advance((*until - NowUs()) / kUsPerMs);
  const std::string where = modal == nullptr ? "the main loop" : NameOf(*modal);
  model_->Stop(where + " would wait for ever: no user is there, and no timer is due");
}

void NoScreen::Advance(std::int64_t ms) {
  clock_.Advance(ms);
  if (clock_.Ticks() <= loop_->MaxVirtualMs) return;
  model_->Stop("the program has run for " + std::to_string(loop_->MaxVirtualMs) +
               " ms of virtual time without an end");
}

// ---- windows ----

void NoScreen::Appear(Form& form, bool /*modal*/, Form* /*behind*/) {
  if (active_ == &form) active_ = nullptr;
  if (FocusOf(form) != nullptr || !form.FirstFocus) return;
  focus_[&form] = FirstFocus(form);
}

void NoScreen::Vanish(Form& form) {
  if (active_ == &form) active_ = nullptr;
  if (MenuOwner == &form) OpenMenu = nullptr;
}

void NoScreen::Gone(Form& form) {
  focus_.erase(&form);
  if (active_ == &form) active_ = nullptr;
}

void NoScreen::Activate() {
  Form* front = model_->Front();
  if (front == active_) return;
  active_ = front;
  if (front == nullptr) return;
  if (Control* focus = FocusOf(*front)) model_->FocusCame(*focus);
}

void NoScreen::Bring(Form& form) {
  if (!form.Visible() || !form.Dirty) return;
  form.Dirty = false;
  form.Window.Dirty = false;
  for (Control* control : form.Controls) {
    if (!control->Dirty) continue;
    if (auto* list = dynamic_cast<ListBox*>(control)) KeepInSight(*list);
    control->Dirty = false;
  }
  KeepFocus(form);
}

// If the control with the focus is hidden or disabled, the focus goes to the next control.
void NoScreen::KeepFocus(Form& form) {
  const auto focus = focus_.find(&form);
  if (focus == focus_.end() || focus->second == nullptr) return;
  Control* control = focus->second;
  const auto& all = form.Controls;
  const bool there = std::find(all.begin(), all.end(), control) != all.end();
  if (there && CanHaveFocus(*control)) return;
  focus->second = there ? NextFocus(form, control, false) : nullptr;
  if (focus->second == nullptr) return;
  model_->Post([model = model_, came = focus->second] {
    if (model->Alive(*came)) model->FocusCame(*came);
  });
}

// ---- focus and menus ----

void NoScreen::FocusOn(Control& control) {
  focus_[&control.Owner()] = &control;
  if (active_ == &control.Owner()) model_->FocusCame(control);
}

Control* NoScreen::FocusOf(const Form& form) const {
  const auto focus = focus_.find(&form);
  if (focus == focus_.end() || focus->second == nullptr) return nullptr;
  const auto& all = form.Controls;
  const bool there = std::find(all.begin(), all.end(), focus->second) != all.end();
  return there ? focus->second : nullptr;
}

void NoScreen::PopupMenu(Form& form, Menu& menu) {
  MenuOwner = &form;
  OpenMenu = &menu;
}

}  // namespace vantora
