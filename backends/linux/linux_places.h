// The folders of one user's program, and the disks and drives of the machine. These are plain
// values, so that a test or a script can give a program any home and any machine.
#pragma once

#include "platform/text.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace vantora {

struct OpticalDrive {
  std::string Device;  // "/dev/sr0"
  Text Vendor, Product, Revision;
  int Target = 0;  // number of the device; unlike the bus address, no two drives share it
};

struct LinuxPlaces {
  std::filesystem::path Home;
  std::filesystem::path Data;     // the program's own data: ~/.local/share/vantora
  std::filesystem::path Cache;    // ~/.cache/vantora
  std::filesystem::path Config;   // ~/.config/vantora
  std::filesystem::path Runtime;  // for the lock of the running instance; may be blank
  std::filesystem::path Sys = "/sys";
  std::filesystem::path Whole = "/";  // what Z: shows
  std::vector<OpticalDrive> Optical;
  // Returns the mount table in the format of /proc/self/mountinfo. Called each time drives are
  // listed.
  std::function<std::string()> MountTable;
};

// The places of the user who runs the process, taken from the environment.
LinuxPlaces PlacesOfUser();
// A home with all folders below it, on a machine without drives and mounts.
LinuxPlaces PlacesBelow(const std::filesystem::path& home);

// The optical drives that the kernel lists below `sys`, by number.
std::vector<OpticalDrive> OpticalDrives(const std::filesystem::path& sys);

}  // namespace vantora
