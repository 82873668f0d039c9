// What the program ships beside its code: texts by number, pictures by name, layouts by window.
#pragma once

#include "platform/text.h"

namespace vantora {

class Resources {
 public:
  virtual ~Resources() = default;
  virtual Text LoadResString(int id) = 0;         // error 326 for a number without text
  virtual Text Layout(const Text& name) = 0;      // the text of NAME.layout; blank when missing
  virtual Text Supplement(const Text& name) = 0;  // a text file beside them; blank when missing
};

}  // namespace vantora
