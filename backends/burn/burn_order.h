// What is said about drives and discs before and while one is written; plain values, without the
// library.
#pragma once

#include "platform/mcd.h"

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace vantora {

// A drive that the machine has, under the names by which its device registry knows it.
struct BurnDevice {
  std::string Device;  // "/dev/sr0"
  Text Vendor, Product, Revision;
  int Target = 0;
};

struct DriveAbilities {
  bool TrackAtOnce = false, DiscAtOnce = false;
  std::vector<int> Speeds;  // to write with, in kB (1000 bytes) a second, ascending
};

using CdTexts = std::map<int, std::pair<Text, Text>>;  // title and performer; 0 is the disc

struct DiscOrder {
  std::string Device;
  bool DiscAtOnce = false, Simulation = false, Fixate = true, Eject = false;
  int Speed = 0;  // kB a second
  std::vector<Text> Waves;
  CdTexts CdText;
};

using BurnEvent = std::function<void(McdEvents&)>;
using TellEvent = std::function<void(BurnEvent)>;  // brings it to the interface thread

}  // namespace vantora
