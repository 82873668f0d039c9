// Pumps a chain into what stands behind it, in slices of the event loop with a millisecond between
// them, in which the windows live; so too where time is virtual.
#pragma once

#include "platform/event_loop.h"
#include "platform/mmchain.h"

#include <memory>

namespace vantora {

class Trigger final : public MMTriggerX {
 public:
  explicit Trigger(EventLoop& loop) : loop_(loop) {}
  void Start() override;  // again when it runs
  void Stop() override { token_.reset(); }

 private:
  void Next();
  void Slice();
  bool Pumped();
  void Tell(const std::function<void()>& event);

  EventLoop& loop_;
  bool begun_ = false;
  std::shared_ptr<int> token_;  // of the slices that are due; without it they do nothing
};

}  // namespace vantora
