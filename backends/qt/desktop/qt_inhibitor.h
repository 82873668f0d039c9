// Asks the desktop over its session bus to stay awake. Does nothing without a session bus, starts
// no service, and no call waits for a reply.
#pragma once

#include "platform/inhibitor.h"

namespace vantora {

class QtInhibitor final : public Inhibitor {
 public:
  std::unique_ptr<Inhibition> Inhibit(const Text& why) override;
};

}  // namespace vantora
