// Asks the desktop over its session bus to stay awake. Nothing is asked where no bus is named, and
// nothing is started to answer; no call waits for its answer.
#pragma once

#include "platform/inhibitor.h"

namespace vantora {

class QtInhibitor final : public Inhibitor {
 public:
  std::unique_ptr<Inhibition> Inhibit(const Text& why) override;
};

}  // namespace vantora
