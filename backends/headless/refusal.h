// How the hands name what they cannot reach.
#pragma once

#include "platform/hands.h"

namespace vantora {

inline std::string Narrow(const Text& name) {
  std::string narrow;
  for (const wchar_t c : name) narrow += c < 128 ? static_cast<char>(c) : '?';
  return narrow;
}

inline std::string NameOf(const Control& control) {
  std::string name = Narrow(control.Owner().Name + L"." + control.Name);
  if (control.Index >= 0) name += "(" + std::to_string(control.Index) + ")";
  return name;
}

[[noreturn]] inline void Refuse(const std::string& why) {
  throw Unreachable(why);
}

}  // namespace vantora
