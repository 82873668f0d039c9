#include "backends/linux/windows1252.h"

#include <algorithm>
#include <array>

namespace vantora {

namespace {

// The characters of the bytes 0x80 to 0x9F; all others are those of the same number.
constexpr std::array<wchar_t, 32> kHigh{
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

}  // namespace

Text FromWindows1252(std::string_view bytes) {
  Text text;
  text.reserve(bytes.size());
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    text += byte >= 0x80 && byte <= 0x9F ? kHigh[byte - 0x80U] : static_cast<wchar_t>(byte);
  }
  return text;
}

std::string ToWindows1252(const Text& text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (const wchar_t c : text) {
    if (c >= 0 && c <= 0xFF && (c < 0x80 || c > 0x9F)) {
      bytes += static_cast<char>(c);
      continue;
    }
    const auto high = std::find(kHigh.begin(), kHigh.end(), c);
    bytes += high == kHigh.end() ? '?' : static_cast<char>(0x80 + (high - kHigh.begin()));
  }
  return bytes;
}

}  // namespace vantora
