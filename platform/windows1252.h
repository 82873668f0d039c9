// The code page Windows-1252, one byte per character. The five bytes without a character stand for
// the control characters of the same number, so that every byte has a character.
#pragma once

#include <algorithm>
#include <array>
#include <optional>

namespace vantora {

// The characters of the bytes 0x80 to 0x9F. Other bytes are the characters of their own number.
constexpr std::array<wchar_t, 32> kWindows1252{
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

constexpr wchar_t Letter1252(unsigned char byte) {
  return byte >= 0x80 && byte <= 0x9F ? kWindows1252[byte - 0x80U] : static_cast<wchar_t>(byte);
}

// Nothing for a character that is not in the code page.
constexpr std::optional<unsigned char> Byte1252(wchar_t letter) {
  if (letter >= 0 && letter <= 0xFF && (letter < 0x80 || letter > 0x9F)) {
    return static_cast<unsigned char>(letter);
  }
  const auto* const high = std::find(kWindows1252.begin(), kWindows1252.end(), letter);
  if (high == kWindows1252.end()) return std::nullopt;
  return static_cast<unsigned char>(0x80 + (high - kWindows1252.begin()));
}

}  // namespace vantora
