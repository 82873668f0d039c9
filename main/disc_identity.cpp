#include "main/disc_identity.h"

#include "backends/cdio/image_layout.h"

#include "platform/laufzeitfehler.h"

#include <string>

namespace vantora {

Text DiscIdentity::MediaIdentity(const Text& drive) {
  Text inside = DiscMci::MediaIdentity(drive);
  if (!inside.empty()) return inside;
  const auto asked = drives_.Named(drive);
  const bool real = asked && !asked->Device.empty();
  if (real || writer_.LastImage().empty()) return {};
  try {
    return std::to_wstring(DiscNumber(ReadSheet(files_, writer_.LastImage()).Toc));
  } catch (const Laufzeitfehler&) {
    return {};  // the image has been moved away: there is no disc to know
  }
}

}  // namespace vantora
