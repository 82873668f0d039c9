// A menu that pops up over a window.
#pragma once

#include "platform/text.h"

#include <functional>
#include <vector>

namespace vantora {

struct MenuItem {
  Text Name, Caption;
  std::function<void()> Click;
  bool Enabled = true;
};

struct Menu {
  Text Name;
  std::vector<MenuItem> Items;
};

}  // namespace vantora
