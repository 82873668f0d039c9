// What the kernel's mount table says about disks that a user means when he says disk: sticks, disks
// and network folders, but not the system's own parts.
#pragma once

#include "backends/linux/linux_places.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vantora {

struct Mount {
  std::string Device;  // as mounted: "/dev/sdb1", "server:/export"
  std::filesystem::path Point;
  int Type = 0;  // one of DriveType; kDriveCdRom for a disc in an optical drive
  Text NetworkPath;
};

// `table` in the format of /proc/self/mountinfo; lines that are none are left out. A device that is
// mounted several times counts once. `sys` tells which devices are removable.
std::vector<Mount> UserMounts(std::string_view table, const LinuxPlaces& places);

}  // namespace vantora
