// The media control interface's questions about the discs in the drives.
#pragma once

#include "backends/cdio/disc_drives.h"
#include "backends/cdio/disc_player.h"

#include "platform/mci.h"

#include <map>
#include <memory>

namespace vantora {

class DiscMci : public Mci {
 public:
  DiscMci(const DiscDrives& drives, DiscPlayer& player) : drives_(drives), player_(player) {}

  // Answers "status cd position" only, for the disc that the player has open.
  Text mciSendString(const Text& command) override;
  Text MediaIdentity(const Text& drive) override;
  int MCI_OPEN(const Text& drive) override;
  bool MCI_SET(int device, int timeFormat) override;
  // Positions count from the disc's own zero, two seconds before sector 0. The lengths of the last
  // track and of the disc are one frame shorter.
  std::int32_t MCI_STATUS(int device, int item, int track) override;
  void MCI_CLOSE(int device) override { devices_.erase(device); }

 private:
  struct Device {
    std::unique_ptr<Disc> Medium;
    int Format = kMciMilliseconds;
  };

  const DiscDrives& drives_;
  DiscPlayer& player_;
  std::map<int, Device> devices_;
};

}  // namespace vantora
