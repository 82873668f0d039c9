#include "backends/linux/windows1252.h"

#include "platform/windows1252.h"

namespace vantora {

Text FromWindows1252(std::string_view bytes) {
  Text text;
  text.reserve(bytes.size());
  for (const char c : bytes) text += Letter1252(static_cast<unsigned char>(c));
  return text;
}

std::string ToWindows1252(const Text& text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (const wchar_t c : text) bytes += static_cast<char>(Byte1252(c).value_or('?'));
  return bytes;
}

}  // namespace vantora
