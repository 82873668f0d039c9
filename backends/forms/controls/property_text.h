// The values of properties as text for scripts and screen readers.
#pragma once

#include "platform/text.h"

namespace vantora {

inline Text FlagText(bool flag) {
  return flag ? L"True" : L"False";
}
inline Text NumberText(int number) {
  return std::to_wstring(number);
}

}  // namespace vantora
