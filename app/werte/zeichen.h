// Conversion of texts from and to files: Windows-1252, one byte a character. Every byte has a
// character, so reading and writing keeps all bytes; a character without a byte becomes "?".
#pragma once

#include "platform/text.h"

#include <string>
#include <vector>

namespace vantora {

wchar_t ZeichenAus1252(unsigned char byte);
unsigned char ByteIn1252(wchar_t zeichen);
bool Hat1252(wchar_t zeichen);

// ---- text functions ----

inline constexpr const wchar_t* kZeilenEnde = L"\r\n";  // ends lines in files and in messages

Text Trim(const Text& text);  // without blanks and NULs at both ends
Text Ucase(Text text);
Text Lcase(Text text);
bool Endet(const Text& text, const Text& ende);
bool Enthaelt(const Text& text, const Text& teil);
Text Links(const Text& text, std::size_t zeichen);
Text Rechts(const Text& text, std::size_t zeichen);

}  // namespace vantora
