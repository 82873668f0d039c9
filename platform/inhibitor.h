// Keeps the machine awake while work runs that a sleep would spoil.
#pragma once

#include "platform/text.h"

#include <memory>

namespace vantora {

// The machine stays awake until its destruction.
class Inhibition {
 public:
  virtual ~Inhibition() = default;
};

class Inhibitor {
 public:
  virtual ~Inhibitor() = default;
  // Asks the desktop to let the machine neither sleep nor rest, and says why. Returns at once; a
  // desktop that cannot be asked changes nothing. Never nothing.
  virtual std::unique_ptr<Inhibition> Inhibit(const Text& why) = 0;
};

}  // namespace vantora
