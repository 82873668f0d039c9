#include "backends/linux/utf8.h"

#include <algorithm>
#include <clocale>
#include <cstdint>
#include <cwctype>
#include <locale.h>
#include <wctype.h>

namespace vantora {

namespace {

constexpr wchar_t kRawByte = 0xDC00;  // plus a byte of 0x80 or more

// Length of the well-formed sequence at the start of `bytes`; 0 when there is none.
std::size_t SequenceLength(std::string_view bytes, std::uint32_t& character) {
  const auto at = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  const unsigned char lead = at(0);
  std::size_t length = 0;
  if (lead < 0x80) {
    character = lead;
    return 1;
  }
  if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2;
    character = lead & 0x1FU;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3;
    character = lead & 0x0FU;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4;
    character = lead & 0x07U;
  }
  if (length == 0 || bytes.size() < length) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((at(i) & 0xC0U) != 0x80) return 0;
    character = (character << 6U) | (at(i) & 0x3FU);
  }
  const bool tooLong = (length == 3 && character < 0x800) || (length == 4 && character < 0x10000);
  const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
  return tooLong || surrogate || character > 0x10FFFF ? 0 : length;
}

// The process may run in the locale "C", which knows only ASCII letters, so case conversion uses
// its own locale.
class LetterCase {
 public:
  LetterCase() : locale_(newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr)) {}
  ~LetterCase() {
    if (locale_) freelocale(locale_);
  }
  LetterCase(const LetterCase&) = delete;
  LetterCase& operator=(const LetterCase&) = delete;

  static const LetterCase& Instance() {
    static const LetterCase instance;
    return instance;
  }
  wchar_t Lower(wchar_t c) const {
    if (c >= L'A' && c <= L'Z') return c + (L'a' - L'A');
    if (c < 0x80) return c;
    return static_cast<wchar_t>(locale_ ? towlower_l(static_cast<wint_t>(c), locale_)
                                        : std::towlower(static_cast<wint_t>(c)));
  }
  wchar_t Upper(wchar_t c) const {
    if (c >= L'a' && c <= L'z') return c - (L'a' - L'A');
    if (c < 0x80) return c;
    return static_cast<wchar_t>(locale_ ? towupper_l(static_cast<wint_t>(c), locale_)
                                        : std::towupper(static_cast<wint_t>(c)));
  }

 private:
  locale_t locale_;
};

}  // namespace

Text FromUtf8(std::string_view bytes) {
  Text text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    std::uint32_t character = 0;
    std::size_t length = SequenceLength(bytes, character);
    if (length == 0) {
      character = static_cast<std::uint32_t>(kRawByte) + static_cast<unsigned char>(bytes[0]);
      length = 1;
    }
    text += static_cast<wchar_t>(character);
    bytes.remove_prefix(length);
  }
  return text;
}

void AppendUtf8(std::string& bytes, std::wstring_view text) {
  const auto put = [&](std::uint32_t byte) { bytes += static_cast<char>(byte); };
  const auto plain = std::find_if(text.begin(), text.end(), [](wchar_t c) { return c >= 0x80; });
  bytes.resize(bytes.size() + static_cast<std::size_t>(plain - text.begin()));
  std::transform(text.begin(), plain, bytes.end() - (plain - text.begin()),
                 [](wchar_t c) { return static_cast<char>(c); });
  text.remove_prefix(static_cast<std::size_t>(plain - text.begin()));
  for (const wchar_t c : text) {
    auto code = std::uint32_t{std::char_traits<wchar_t>::to_int_type(c)};
    if (code >= 0xDC80 && code <= 0xDCFF) {
      put(code - static_cast<std::uint32_t>(kRawByte));
      continue;
    }
    if ((code >= 0xD800 && code <= 0xDFFF) || code > 0x10FFFF) code = 0xFFFD;
    if (code < 0x80) {
      put(code);
    } else if (code < 0x800) {
      put(0xC0U | (code >> 6U));
      put(0x80U | (code & 0x3FU));
    } else if (code < 0x10000) {
      put(0xE0U | (code >> 12U));
      put(0x80U | ((code >> 6U) & 0x3FU));
      put(0x80U | (code & 0x3FU));
    } else {
      put(0xF0U | (code >> 18U));
      put(0x80U | ((code >> 12U) & 0x3FU));
      put(0x80U | ((code >> 6U) & 0x3FU));
      put(0x80U | (code & 0x3FU));
    }
  }
}

std::string ToUtf8(const Text& text) {
  std::string bytes;
  bytes.reserve(text.size());
  AppendUtf8(bytes, text);
  return bytes;
}

Text LowerCase(const Text& text) {
  const LetterCase& letters = LetterCase::Instance();
  Text lower = text;
  for (wchar_t& c : lower) c = letters.Lower(c);
  return lower;
}

Text UpperCase(const Text& text) {
  const LetterCase& letters = LetterCase::Instance();
  Text upper = text;
  for (wchar_t& c : upper) c = letters.Upper(c);
  return upper;
}

}  // namespace vantora
