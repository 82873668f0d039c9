// Pumps a chain into a file.
#pragma once

#include "platform/event_loop.h"
#include "platform/mmchain.h"

namespace vantora {

class Trigger final : public MMTriggerX {
 public:
  explicit Trigger(EventLoop& loop) : loop_(loop) {}
  void Start() override {}
  void Stop() override {}

 private:
  [[maybe_unused]] EventLoop& loop_;
};

}  // namespace vantora
