// The branch `ENUM\SCSI` of the device registry, built from the drives of the machine. It has a key
// for each product, named after it in upper case, the shortest first, and below it a key for each
// drive. The embedded drive is the product "VANTORA IMAGE" with target 7.
#pragma once

#include "backends/linux/drive_table.h"

#include "platform/registry.h"

namespace vantora {

class DeviceRegistry final : public Registry {
 public:
  explicit DeviceRegistry(const DriveTable& table) : table_(table) {}

  std::vector<Text> SubKeys(const Text& key) override;
  Text Value(const Text& key, const Text& name) override;

 private:
  struct Device {
    Text Key, Instance;  // "CDROM VANTORA IMAGE", "IMAGE"
    Text Product, Target, Letter;
  };
  std::vector<Device> Devices() const;

  const DriveTable& table_;
};

}  // namespace vantora
