// The program's data: texts by number, pictures by name, layouts by window.
#pragma once

#include "platform/text.h"

namespace vantora {

class Resources {
 public:
  virtual ~Resources() = default;
  virtual Text LoadResString(int id) = 0;         // raises 326 for a number without a text
  virtual Text Layout(const Text& name) = 0;      // contents of NAME.layout; blank when missing
  virtual Text Supplement(const Text& name) = 0;  // another text file; blank when missing
};

}  // namespace vantora
