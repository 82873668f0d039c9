#include "backends/cdio/sheet_text.h"

#include "backends/cdio/disc.h"

#include "platform/windows1252.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>

namespace vantora {

namespace {

// Decodes UTF-8; returns a blank text for bytes that are not UTF-8.
Text FromUtf8(const std::string& bytes) {
  Text text;
  for (std::size_t at = 0; at < bytes.size();) {
    const auto lead = static_cast<unsigned char>(bytes[at++]);
    const int more = lead < 0x80 ? 0 : lead < 0xC2 ? -1 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
    if (more < 0 || lead > 0xF4 || at + static_cast<std::size_t>(more) > bytes.size()) return {};
    unsigned letter = more == 0 ? lead : lead & (0x3FU >> static_cast<unsigned>(more));
    for (int i = 0; i < more; ++i) {
      const auto next = static_cast<unsigned char>(bytes[at++]);
      if ((next & 0xC0U) != 0x80) return {};
      letter = letter << 6U | (next & 0x3FU);
    }
    text += static_cast<wchar_t>(letter);
  }
  return text;
}

void AppendUtf8(std::string& text, std::uint32_t letter) {
  const auto tail = [&](unsigned shift) {
    text += static_cast<char>(0x80U | (letter >> shift & 0x3FU));
  };
  if (letter < 0x80) {
    text += static_cast<char>(letter);
  } else if (letter < 0x800) {
    text += static_cast<char>(0xC0U | letter >> 6U);
    tail(0);
  } else if (letter < 0x10000) {
    text += static_cast<char>(0xE0U | letter >> 12U);
    tail(6);
    tail(0);
  } else {
    text += static_cast<char>(0xF0U | letter >> 18U);
    tail(12);
    tail(6);
    tail(0);
  }
}

std::string FromUtf16(const std::string& bytes, bool bigEndian) {
  std::string text;
  std::uint32_t high = 0;  // first half of a surrogate pair
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
    const std::uint32_t first = static_cast<unsigned char>(bytes[at]);
    const std::uint32_t second = static_cast<unsigned char>(bytes[at + 1]);
    const std::uint32_t unit = bigEndian ? first << 8U | second : second << 8U | first;
    if (unit == 0xFEFF) continue;
    if (unit >= 0xD800 && unit < 0xDC00) {
      high = unit;
    } else if (unit >= 0xDC00 && unit < 0xE000 && high != 0) {
      AppendUtf8(text, 0x10000 + ((high & 0x3FFU) << 10U | (unit & 0x3FFU)));
      high = 0;
    } else {
      AppendUtf8(text, unit);
    }
  }
  return text;
}

}  // namespace

std::string SheetText(const std::string& bytes) {
  std::string text = bytes;
  // A UTF-16 sheet begins with a byte order mark or with an ASCII character.
  const bool little = bytes.starts_with("\xFF\xFE") || (bytes.size() > 1 && bytes[1] == '\0');
  const bool big = bytes.starts_with("\xFE\xFF") || (bytes.size() > 1 && bytes[0] == '\0');
  if (little || big) text = FromUtf16(bytes, !little);
  if (text.starts_with("\xEF\xBB\xBF")) text.erase(0, 3);
  std::string lines;
  lines.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n') continue;
    lines += text[at] == '\r' ? '\n' : text[at];
  }
  return lines;
}

Text SheetName(const std::string& name) {
  Text text = FromUtf8(name);
  if (!text.empty() || name.empty()) return text;
  for (const char byte : name) text += Letter1252(static_cast<unsigned char>(byte));
  return text;
}

int SheetTime(const std::string& text) {
  int minutes = 0, seconds = 0, frames = 0, end = 0;
  const int found = std::sscanf(text.c_str(), "%3d:%2d:%2d%n", &minutes, &seconds, &frames, &end);
  const bool whole = found == 3 && static_cast<std::size_t>(end) == text.size();
  if (!whole || minutes < 0 || seconds < 0 || seconds > 59 || frames < 0 ||
      frames >= kSectorsPerSecond) {
    return -1;
  }
  return (minutes * 60 + seconds) * kSectorsPerSecond + frames;
}

std::string InCapitals(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  });
  return text;
}

}  // namespace vantora
