// The text encodings of sheets of disc images. Sheets do not name their encoding: UTF-8 and UTF-16
// are recognised by their form, everything else is Windows-1252. Any line end is accepted.
#pragma once

#include "platform/text.h"

#include <string>

namespace vantora {

// The text of a sheet without a byte order mark and with lines ended by "\n". UTF-16 becomes UTF-8;
// other encodings stay as they are.
std::string SheetText(const std::string& bytes);

// Decodes a name from a sheet.
Text SheetName(const std::string& name);

// Parses "mm:ss:ff" into sectors. Returns -1 when the text is not exactly a time.
int SheetTime(const std::string& text);

// Key words also count in small letters.
std::string InCapitals(std::string text);

}  // namespace vantora
