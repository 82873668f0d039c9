// The device registry below HKEY_LOCAL_MACHINE: keys with subkeys and named text values. Keys and
// names are compared without regard to case.
#pragma once

#include "platform/text.h"

#include <vector>

namespace vantora {

class Registry {
 public:
  virtual ~Registry() = default;
  virtual std::vector<Text> SubKeys(const Text& key) = 0;     // empty for a missing key
  virtual Text Value(const Text& key, const Text& name) = 0;  // blank for a missing value
};

}  // namespace vantora
