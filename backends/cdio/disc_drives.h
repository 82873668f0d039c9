// The drives that can hold a disc to read: optical ones, and the folder that serves as the tray of
// the embedded one. Which there are is asked again whenever somebody wants to know.
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
  Text Tray;           // of the embedded drive: the folder whose first sheet is the disc
  Text Product;        // in upper case, as the device registry has it in its keys
  int Target = 0, Lun = 0;
};

class DiscDrives {
 public:
  using ListCall = std::function<std::vector<DiscDrive>()>;

  DiscDrives(Dateien& files, ListCall list) : files_(files), list_(std::move(list)) {}

  std::vector<DiscDrive> All() const { return list_(); }
  // The drive of "D:\", "d:" or "D"; the first one for a blank name.
  std::optional<DiscDrive> Named(const Text& name) const;
  // False: the system keeps the drive from this program, or somebody holds it for himself.
  bool MayUse(const DiscDrive& drive) const;
  // The disc that lies in it now; nothing when there is none, or none that can be understood.
  // `fault` then holds the first sheet that was not understood.
  std::unique_ptr<Disc> Open(const DiscDrive& drive, SheetFault* fault = nullptr) const;

 private:
  std::unique_ptr<Disc> InTray(const Text& tray, SheetFault& fault) const;

  Dateien& files_;
  ListCall list_;
};

}  // namespace vantora
