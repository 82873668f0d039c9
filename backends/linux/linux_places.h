// Where one user's program lives: its folders, and what the machine has in disks and drives. Plain
// values, so that a test or a script gives a program any home and any machine.
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
  int Target = 0;  // the number of the device: no two drives share it, unlike the bus address
};

struct LinuxPlaces {
  std::filesystem::path Home;
  std::filesystem::path Data;     // the program's own: ~/.local/share/vantora
  std::filesystem::path Cache;    // ~/.cache/vantora
  std::filesystem::path Config;   // ~/.config/vantora
  std::filesystem::path Runtime;  // for the mark of the running instance; may be blank
  std::filesystem::path Sys = "/sys";
  std::vector<OpticalDrive> Optical;
  // The mount table as /proc/self/mountinfo writes it; asked again whenever drives are listed.
  std::function<std::string()> MountTable;
};

// The places of the user who runs the process, as the environment names them.
LinuxPlaces PlacesOfUser();
// A home of its own with everything below it, on a machine without drives and mounts.
LinuxPlaces PlacesBelow(const std::filesystem::path& home);

// The optical drives that the kernel shows below `sys`, by their number.
std::vector<OpticalDrive> OpticalDrives(const std::filesystem::path& sys);

}  // namespace vantora
