// Finds in the kernel's mount table the disks of the user: sticks, disks and network folders,
// without the parts of the system itself.
#pragma once

#include "backends/linux/linux_places.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vantora {

struct Mount {
  std::string Device;  // the mounted source: "/dev/sdb1", "server:/export"
  std::filesystem::path Point;
  int Type = 0;  // a DriveType; kDriveCdRom for a disc in an optical drive
  Text NetworkPath;
};

// `table` has the format of /proc/self/mountinfo; lines in another format are ignored. A device
// that is mounted several times counts once. The folder `sys` in `places` shows which devices are
// removable.
std::vector<Mount> UserMounts(std::string_view table, const LinuxPlaces& places);

}  // namespace vantora
