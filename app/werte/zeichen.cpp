#include "app/werte/zeichen.h"

#include "platform/windows1252.h"

#include <algorithm>
#include <cwctype>

namespace vantora {

namespace {

constexpr bool Blank(wchar_t zeichen) {
  return zeichen == L' ' || zeichen == L'\0';
}

// Upper and lower case of the letters of Windows-1252, independent of the locale.
wchar_t Gross(wchar_t z) {
  if ((z >= 0xE0 && z <= 0xFE && z != 0xF7) || (z >= L'a' && z <= L'z')) {
    return static_cast<wchar_t>(z - 32);
  }
  if (z == 0xFF) return L'\u0178';
  return z < 0x80 ? z : static_cast<wchar_t>(std::towupper(static_cast<wint_t>(z)));
}

wchar_t Klein(wchar_t z) {
  if ((z >= 0xC0 && z <= 0xDE && z != 0xD7) || (z >= L'A' && z <= L'Z')) {
    return static_cast<wchar_t>(z + 32);
  }
  if (z == 0x178) return L'\u00FF';
  return z < 0x80 ? z : static_cast<wchar_t>(std::towlower(static_cast<wint_t>(z)));
}

}  // namespace

wchar_t ZeichenAus1252(unsigned char byte) {
  return Letter1252(byte);
}

bool Hat1252(wchar_t zeichen) {
  return Byte1252(zeichen).has_value();
}

unsigned char ByteIn1252(wchar_t zeichen) {
  return Byte1252(zeichen).value_or('?');
}

Text Trim(const Text& text) {
  std::size_t anfang = 0, ende = text.size();
  while (ende > 0 && Blank(text[ende - 1])) --ende;
  while (anfang < ende && Blank(text[anfang])) ++anfang;
  return text.substr(anfang, ende - anfang);
}

Text Ucase(Text text) {
  std::transform(text.begin(), text.end(), text.begin(), Gross);
  return text;
}

Text Lcase(Text text) {
  std::transform(text.begin(), text.end(), text.begin(), Klein);
  return text;
}

bool Endet(const Text& text, const Text& ende) {
  return text.ends_with(ende);
}
bool Enthaelt(const Text& text, const Text& teil) {
  return text.find(teil) != Text::npos;
}
Text Links(const Text& text, std::size_t zeichen) {
  return text.substr(0, zeichen);
}
Text Rechts(const Text& text, std::size_t zeichen) {
  return text.size() > zeichen ? text.substr(text.size() - zeichen) : text;
}

}  // namespace vantora
