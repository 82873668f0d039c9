#include "main/disc_identity.h"

#include "backends/cdio/image_layout.h"

#include "platform/laufzeitfehler.h"

#include <string>

namespace vantora {

Text DiscIdentity::WrittenIdentity(const Text& drive) {
  const auto asked = drives_.Named(drive);
  if (!asked || !asked->Device.empty()) return MediaIdentity(drive);
  if (writer_.LastImage().empty()) return {};
  try {
    return std::to_wstring(DiscNumber(ReadSheet(files_, writer_.LastImage()).Toc));
  } catch (const Laufzeitfehler&) {
    return {};  // the image was moved or deleted, so its identity is unknown
  }
}

}  // namespace vantora
