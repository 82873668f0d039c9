// The drives that can hold a disc to read: optical drives, and the folder that serves as the tray
// of the embedded drive. The list is read again at each question.
#pragma once

#include "backends/cdio/disc.h"

#include "platform/files.h"
#include "platform/mci.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vantora {

struct DiscDrive {
  wchar_t Letter = 0;
  std::string Device;  // "/dev/sr0"; blank: the embedded drive
  Text Tray;           // folder of the embedded drive; its first sheet is the disc
  Text Product;        // in upper case, as in the keys of the device registry
  int Target = 0, Lun = 0;
};

class DiscDrives {
 public:
  using ListCall = std::function<std::vector<DiscDrive>()>;

  DiscDrives(Dateien& files, ListCall list) : files_(files), list_(std::move(list)) {}

  std::vector<DiscDrive> All() const { return list_(); }
  // Returns the drive named "D:\", "d:" or "D"; the first drive for a blank name.
  std::optional<DiscDrive> Named(const Text& name) const;
  // Returns false when the system denies access to the drive, or another program uses it
  // exclusively.
  bool MayUse(const DiscDrive& drive) const;
  // Returns the disc that is in the drive now; nothing when there is none, or none that can be
  // read. In the latter case `fault` describes the first sheet that could not be read.
  std::unique_ptr<Disc> Open(const DiscDrive& drive, SheetFault* fault = nullptr) const;

 private:
  std::unique_ptr<Disc> InTray(const Text& tray, SheetFault& fault) const;

  Dateien& files_;
  ListCall list_;
};

}  // namespace vantora
