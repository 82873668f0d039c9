// Long work in slices on the headless loop: a slice a millisecond of virtual time, so that a story
// plays the same way every time.
#pragma once

#include "platform/background.h"
#include "platform/event_loop.h"

namespace vantora {

class HeadlessBackground final : public Background {
 public:
  explicit HeadlessBackground(EventLoop& loop) : loop_(loop) {}
  std::unique_ptr<BackgroundJob> Start(std::function<int()> slice) override;

 private:
  EventLoop& loop_;
};

}  // namespace vantora
