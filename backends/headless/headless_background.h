// Runs long work in slices on the headless loop, one slice for each millisecond of virtual time. A
// story therefore runs the same way every time.
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
