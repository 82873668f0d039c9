// Keeps the machine awake during work that a suspend would spoil.
#pragma once

#include "platform/text.h"

#include <memory>

namespace vantora {

// The machine stays awake until this object is destroyed.
class Inhibition {
 public:
  virtual ~Inhibition() = default;
};

class Inhibitor {
 public:
  virtual ~Inhibitor() = default;
  // Asks the desktop neither to suspend the machine nor to treat it as idle; `why` is the reason
  // that the desktop may show. Returns at once and never null. Has no effect on a desktop that does
  // not support it.
  virtual std::unique_ptr<Inhibition> Inhibit(const Text& why) = 0;
};

}  // namespace vantora
