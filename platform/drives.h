// The drive letters and their drives. All calls are from the interface thread.
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
  virtual Text GetLogicalDrives() = 0;  // the letters in use, "CDZ"
  // The DriveType of "C:\"; kDriveNoRoot for a letter that is not in use.
  virtual int GetDriveType(const Text& root) = 0;
  // Bytes available to the user on the drive of a path; nothing when the drive does not answer
  // within two seconds or does not exist.
  virtual std::optional<double> GetDiskFreeSpaceEx(const Text& path) = 0;
  // Size in bytes of the drive of a path; nothing in the same cases.
  virtual std::optional<double> GetDiskTotalBytes(const Text& path) = 0;
  // "\\server\share" for the letter of a network drive ('N'); "Drive Letter Not Found" for other
  // letters.
  virtual Text NetworkPath(wchar_t letter) = 0;
};

}  // namespace vantora
