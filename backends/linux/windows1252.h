// Text in one byte per character, code page 1252. The five bytes without a character stand for the
// control characters of the same number. A character outside the code page becomes "?".
#pragma once

#include "platform/text.h"

#include <string>
#include <string_view>

namespace vantora {

Text FromWindows1252(std::string_view bytes);
std::string ToWindows1252(const Text& text);

}  // namespace vantora
