// Answers the program's questions about drives from the drive table.
#pragma once

#include "backends/linux/drive_table.h"

#include "platform/drives.h"

namespace vantora {

class LinuxDrives final : public Drives {
 public:
  explicit LinuxDrives(const DriveTable& table) : table_(table) {}

  Text GetLogicalDrives() override;
  int GetDriveType(const Text& root) override;
  // A network folder that does not answer within two seconds has no value.
  std::optional<double> GetDiskFreeSpaceEx(const Text& path) override;
  std::optional<double> GetDiskTotalBytes(const Text& path) override;
  Text NetworkPath(wchar_t letter) override;

 private:
  const DriveTable& table_;
};

}  // namespace vantora
