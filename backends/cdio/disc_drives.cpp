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

std::unique_ptr<Disc> DiscDrives::Open(const DiscDrive& drive, SheetFault* fault) const {
  SheetFault first;
  std::unique_ptr<Disc> disc;
  if (!drive.Device.empty()) {
    disc = DriveDisc::Open(drive.Device);
  } else {
    disc = InTray(drive.Tray, first);
  }
  if (fault != nullptr) *fault = disc ? SheetFault{} : first;
  return disc;
}

std::unique_ptr<Disc> DiscDrives::InTray(const Text& tray, SheetFault& fault) const {
  try {
    const Text folder = tray.ends_with(L"\\") ? tray : tray + L"\\";
    for (const Text& name : files_.List(folder, L"*.cue;*.toc")) {
      try {
        return std::make_unique<ImageDisc>(files_, folder + name);
      } catch (const SheetFailure& failure) {
        // The image is incomplete, or the sheet belongs to something else. The next sheet may
        // describe a disc.
        if (fault.Sheet.empty()) fault = failure.What;
      } catch (const Laufzeitfehler&) {
        // The file was removed from the tray at this moment.
      }
    }
  } catch (const Laufzeitfehler&) {
    // The folder of the tray does not exist, so there is no disc.
  }
  return nullptr;
}

}  // namespace vantora
