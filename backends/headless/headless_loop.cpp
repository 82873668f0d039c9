#include "backends/headless/headless_loop.h"

#include "backends/headless/no_screen.h"

namespace vantora {

HeadlessLoop::HeadlessLoop(HeadlessClock& clock)
    : FormLoop(std::make_unique<NoScreen>(clock)), screen_(static_cast<NoScreen&>(TheWorld())) {
  screen_.Serve(*this);
}

HeadlessLoop::~HeadlessLoop() = default;

void HeadlessLoop::Sleep(int ms) {
  LeaveIfEnded();
  Sync();
  screen_.CountTurn();
  screen_.Advance(ms);
}

void HeadlessLoop::Pass(int ms) {
  const std::int64_t until = screen_.NowUs() + ms * 1000LL;
  while (true) {
    while (!Ended() && Turn()) continue;
    const auto next = NextDue();
    if (Ended() || !next || *next > until) break;
    screen_.Rest(next, nullptr);
  }
  if (!Ended()) screen_.Advance((until - screen_.NowUs()) / 1000);
  ThrowIfStopped();
}

void HeadlessLoop::Deliver(const std::function<void()>& handler) {
  Handle(handler);
  ThrowIfStopped();
}

void HeadlessLoop::Touch(Form& form) {
  BringForward(form);
  screen_.Activate();
}

Menu* HeadlessLoop::OpenMenu(const Form& form) const {
  return screen_.MenuOwner == &form ? screen_.OpenMenu : nullptr;
}

void HeadlessLoop::CloseMenu() {
  screen_.OpenMenu = nullptr;
}

}  // namespace vantora
