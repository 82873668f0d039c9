// The words of the toolkit's own menus, which text boxes and help pages open on the right button.
// Without them these menus would be in English.
#pragma once

#include "platform/text.h"

#include <functional>
#include <memory>

namespace vantora {

struct EditWords {
  Text Undo;  // "&" before the letter that chooses an item
  Text Redo;
  Text Cut;
  Text Copy;
  Text Paste;
  Text Delete;
  Text SelectAll;
  Text CopyLink;  // copies the address of a link
  Text Shift;     // the name of the key
};

// In use as long as the object lives. `words` is asked when the first menu opens.
class ToolkitWords final {
 public:
  explicit ToolkitWords(std::function<EditWords()> words);
  ~ToolkitWords();
  ToolkitWords(const ToolkitWords&) = delete;
  ToolkitWords& operator=(const ToolkitWords&) = delete;

 private:
  class Translator;

  std::unique_ptr<Translator> translator_;
};

}  // namespace vantora
