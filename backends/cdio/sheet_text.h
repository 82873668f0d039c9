// What sheets of disc images are written in. They say nothing of their letters: UTF-8 and UTF-16
// are recognised by their form, all else is Windows-1252. Lines end in any way.
#pragma once

#include "platform/text.h"

#include <string>

namespace vantora {

// The text of a sheet without marks of its letters, lines ended by "\n". UTF-16 becomes UTF-8;
// other letters stay as they are.
std::string SheetText(const std::string& bytes);

// A name that stands in a sheet.
Text SheetName(const std::string& name);

// "mm:ss:ff" in sectors, nothing else before or behind; -1 for what is no time.
int SheetTime(const std::string& text);

// Key words count in small letters too.
std::string InCapitals(std::string text);

}  // namespace vantora
