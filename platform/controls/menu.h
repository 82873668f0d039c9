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
  Text Key = {};  // the words of the key that does the same, such as "Ctrl+N"; blank for none
};

struct Menu {
  Text Name;
  std::vector<MenuItem> Items;
};

}  // namespace vantora
