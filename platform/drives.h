// Drive letters and what stands behind them.
#pragma once

#include "platform/text.h"

#include <optional>

namespace vantora {

enum DriveType : int {
  kDriveUnknown = 0,
  kDriveNoRoot = 1,
  kDriveRemovable = 2,
  kDriveFixed = 3,
  kDriveNetwork = 4,
  kDriveCdRom = 5,
  kDriveRamDisk = 6,
};

class Drives {
 public:
  virtual ~Drives() = default;
  virtual Text GetLogicalDrives() = 0;             // the letters in use, "CDZ"
  virtual int GetDriveType(const Text& root) = 0;  // of "C:\", one of DriveType
  // Free bytes for the user on the drive of a path; nothing when the drive does not answer.
  virtual std::optional<double> GetDiskFreeSpaceEx(const Text& path) = 0;
  // Bytes of the whole drive of a path; nothing when the drive does not answer.
  virtual std::optional<double> GetDiskTotalBytes(const Text& path) = 0;
  // "\\server\share" behind a letter ("N"); "Drive Letter Not Found" for none.
  virtual Text NetworkPath(wchar_t letter) = 0;
};

}  // namespace vantora
