// A world without a screen. A window becomes active when the loop turns, and time passes when the
// program sleeps or waits.
#pragma once

#include "backends/forms/world.h"
#include "backends/headless/headless_clock.h"

#include <map>

namespace vantora {

class HeadlessLoop;

class NoScreen final : public World {
 public:
  explicit NoScreen(HeadlessClock& clock) : clock_(clock) {}
  void Serve(HeadlessLoop& loop) { loop_ = &loop; }

  void Enter(FormLoop& model) override { model_ = &model; }
  std::int64_t NowUs() const override { return clock_.Ticks() * 1000; }
  bool HandleInput() override;
  void EndTurns(bool busy) override;
  void Rest(std::optional<std::int64_t> until, const Form* modal) override;
  void Appear(Form& form, bool modal, Form* behind) override;
  void Vanish(Form& form) override;
  void Iconify(Form& /*form*/) override {}
  void ComeForward(Form& /*form*/) override {}
  void Bring(Form& form) override;
  void Gone(Form& form) override;
  void FocusOn(Control& control) override;
  Control* FocusOf(const Form& form) const override;
  void PopupMenu(Form& form, Menu& menu) override;

  void Advance(std::int64_t ms);
  void CountTurn();
  void Activate();  // activates the window in front

  const Form* MenuOwner = nullptr;
  Menu* OpenMenu = nullptr;

 private:
  void KeepFocus(Form& form);

  HeadlessClock& clock_;
  FormLoop* model_ = nullptr;
  HeadlessLoop* loop_ = nullptr;
  std::map<const Form*, Control*> focus_;  // may be destroyed
  const Form* active_ = nullptr;           // may be destroyed
  std::int64_t turns_ = 0;
};

}  // namespace vantora
