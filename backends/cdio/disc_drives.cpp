#include "backends/cdio/disc_drives.h"

#include "backends/cdio/drive_disc.h"
#include "backends/cdio/image_disc.h"

#include "platform/laufzeitfehler.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace vantora {

namespace {

wchar_t Capital(wchar_t c) {
  return c >= L'a' && c <= L'z' ? c - (L'a' - L'A') : c;
}

}  // namespace

std::optional<DiscDrive> DiscDrives::Named(const Text& name) const {
  for (const DiscDrive& drive : All()) {
    if (name.empty() || drive.Letter == Capital(name[0])) return drive;
  }
  return std::nullopt;
}

bool DiscDrives::MayUse(const DiscDrive& drive) const {
  if (drive.Device.empty()) return true;
  const int opened = ::open(drive.Device.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (opened < 0) return errno != EACCES && errno != EPERM && errno != EBUSY;
  ::close(opened);
  return true;
}

std::unique_ptr<Disc> DiscDrives::Open(const DiscDrive& drive) const {
  if (!drive.Device.empty()) return DriveDisc::Open(drive.Device);
  try {
    const Text folder = drive.Tray.ends_with(L"\\") ? drive.Tray : drive.Tray + L"\\";
    for (const Text& name : files_.List(folder, L"*.cue;*.toc")) {
      try {
        return std::make_unique<ImageDisc>(files_, folder + name);
      } catch (const Laufzeitfehler&) {
        // Half an image, or a sheet of something else: the next one may be the disc.
      }
    }
  } catch (const Laufzeitfehler&) {
    // The folder of the tray is missing: so is a disc.
  }
  return nullptr;
}

}  // namespace vantora
