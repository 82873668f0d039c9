// Text at the edge of a file: Windows-1252, one byte a character. Every byte has a character, so
// what was read is written back the same; a character without a byte becomes "?".
#pragma once

#include "platform/text.h"

#include <string>
#include <vector>

namespace vantora {

wchar_t ZeichenAus1252(unsigned char byte);
unsigned char ByteIn1252(wchar_t zeichen);
bool Hat1252(wchar_t zeichen);

// ---- small tools for texts ----

inline constexpr const wchar_t* kZeilenEnde = L"\r\n";  // of lines in files and in messages

Text Trim(const Text& text);  // without blanks and NULs at both ends
Text Ucase(Text text);
Text Lcase(Text text);
bool Endet(const Text& text, const Text& ende);
bool Enthaelt(const Text& text, const Text& teil);
Text Links(const Text& text, std::size_t zeichen);
Text Rechts(const Text& text, std::size_t zeichen);

}  // namespace vantora
