// Pulls sound from a chain and pushes it into the components downstream, in slices of the event
// loop with a millisecond between them, so that windows stay responsive. A virtual clock gets the
// same slices.
#pragma once

#include "platform/event_loop.h"
#include "platform/mmchain.h"

#include <memory>

namespace vantora {

class Trigger final : public MMTriggerX {
 public:
  explicit Trigger(EventLoop& loop) : loop_(loop) {}
  void Start() override;  // starts anew when it is running
  void Stop() override { token_.reset(); }

 private:
  void Next();
  void Slice();
  bool Pumped();
  void Tell(const std::function<void()>& event);

  EventLoop& loop_;
  bool begun_ = false;
  std::shared_ptr<int> token_;  // of the slices posted; a slice without it does nothing
};

}  // namespace vantora
