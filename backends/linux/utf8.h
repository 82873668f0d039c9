// Converts between Text and the bytes of file names, settings and resources. Bytes that are not
// valid UTF-8 become the characters U+DC80 to U+DCFF and turn back into the same bytes, so that a
// file with a broken name can still be listed, opened and deleted.
#pragma once

#include "platform/text.h"

#include <string>
#include <string_view>

namespace vantora {

Text FromUtf8(std::string_view bytes);
std::string ToUtf8(const Text& text);
void AppendUtf8(std::string& bytes, std::wstring_view text);

// Converts letters of any script, whatever the locale of the process.
Text LowerCase(const Text& text);
Text UpperCase(const Text& text);

}  // namespace vantora
