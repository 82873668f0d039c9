#include "app/werte/zeichen.h"

#include <algorithm>
#include <array>
#include <cwctype>

namespace vantora {

namespace {

// Bytes 128 to 159; the five without a character stand for the control characters of their number.
constexpr std::array<wchar_t, 32> kOben = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

constexpr wchar_t kErstes = 0x80, kLetztes = 0x9F;

constexpr bool Blank(wchar_t zeichen) {
  return zeichen == L' ' || zeichen == L'\0';
}

// Upper and lower case of the letters that the code page holds, whatever locale the program runs
// in.
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
  return byte >= kErstes && byte <= kLetztes ? kOben[static_cast<std::size_t>(byte - kErstes)]
                                             : static_cast<wchar_t>(byte);
}

bool Hat1252(wchar_t zeichen) {
  const bool direkt = zeichen >= 0 && zeichen <= 0xFF && (zeichen < kErstes || zeichen > kLetztes);
  return direkt || std::find(kOben.begin(), kOben.end(), zeichen) != kOben.end();
}

unsigned char ByteIn1252(wchar_t zeichen) {
  if (!Hat1252(zeichen)) return '?';
  const auto platz = std::find(kOben.begin(), kOben.end(), zeichen);
  return static_cast<unsigned char>(platz == kOben.end() ? zeichen
                                                         : kErstes + (platz - kOben.begin()));
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
