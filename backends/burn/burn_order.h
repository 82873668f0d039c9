// Plain records on drives and discs, used before and during a write, without the library.
#pragma once

#include "platform/mcd.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vantora {

// A drive of the machine, with the names that its device registry has for it.
struct BurnDevice {
  std::string Device;  // "/dev/sr0"
  Text Vendor, Product, Revision;
  int Target = 0;
};

struct DriveAbilities {
  bool TrackAtOnce = false, DiscAtOnce = false;
  std::vector<int> Speeds;  // for writing, in kB (1000 bytes) a second, ascending
};

using CdTexts = std::map<int, std::pair<Text, Text>>;  // title, performer; 0 is the disc

struct DiscOrder {
  std::string Device;
  bool DiscAtOnce = false, Simulation = false, Fixate = true, Eject = false, Verify = false;
  int Speed = 0;  // kB a second
  std::vector<Text> Waves;
  CdTexts CdText;
};

// A disc that was just written, as the reading back end sees it.
struct BurntDisc {
  std::vector<int> Starts;  // first sectors of the tracks
  int LeadOut = 0;
  // Both return false when a sector cannot be read. Reading carefully takes longer, and reads a
  // sector again until the drive returns the same twice.
  std::function<bool(int sector, int count, void*target)> Read, ReadCarefully;
};
using OpenBurnt = std::function<std::optional<BurntDisc>(const std::string& device)>;

using BurnEvent = std::function<void(McdEvents&)>;
using PostEvent = std::function<void(BurnEvent)>;  // posts it to the interface thread

}  // namespace vantora
