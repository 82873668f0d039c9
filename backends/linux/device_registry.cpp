#include "backends/linux/device_registry.h"

#include "backends/linux/utf8.h"

#include "platform/drives.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr const wchar_t* kBranch = L"enum\\scsi";

// The key without a backslash at either end, in lower case.
Text Plain(const Text& key) {
  const auto first = key.find_first_not_of(L'\\');
  if (first == Text::npos) return {};
  return LowerCase(key.substr(first, key.find_last_not_of(L'\\') - first + 1));
}

// Makes a product name usable as one level of a key. The maker is left out: drives are looked up by
// product alone, and all drives of one product are below one key.
Text KeyName(const Text& product) {
  Text name = UpperCase(L"CDROM " + product);
  std::replace(name.begin(), name.end(), L'\\', L'_');
  return name;
}

}  // namespace

std::vector<DeviceRegistry::Device> DeviceRegistry::Devices() const {
  std::vector<Device> devices;
  for (const DriveEntry& entry : table_.Entries()) {
    if (entry.Type != kDriveCdRom) continue;
    if (entry.Letter == table_.ImageLetter()) {
      devices.push_back(
          {KeyName(L"VANTORA IMAGE"), L"IMAGE", L"VANTORA IMAGE", L"7", Text(1, entry.Letter)});
    }
    for (const OpticalDrive& drive : table_.Places().Optical) {
      if (entry.Device.empty() || drive.Device != entry.Device) continue;
      const Text target = std::to_wstring(drive.Target);
      devices.push_back(
          {KeyName(drive.Product), L"SR" + target, drive.Product, target, Text(1, entry.Letter)});
    }
  }
  return devices;
}

std::vector<Text> DeviceRegistry::SubKeys(const Text& key) {
  const Text wanted = Plain(key);
  std::vector<Text> names;
  for (const Device& device : Devices()) {
    if (wanted == kBranch) {
      // Two drives of one product have two keys below the product's.
      if (std::find(names.begin(), names.end(), device.Key) == names.end()) {
        names.push_back(device.Key);
      }
    } else if (wanted == Plain(Text(kBranch) + L"\\" + device.Key)) {
      names.push_back(device.Instance);
    }
  }
  // A caller that looks for "DVD-RW" takes the first key that contains it. That must not be the key
  // of "DVD-RW DL", so the shortest key comes first.
  if (wanted == kBranch) {
    std::stable_sort(names.begin(), names.end(),
                     [](const Text& a, const Text& b) { return a.size() < b.size(); });
  }
  return names;
}

Text DeviceRegistry::Value(const Text& key, const Text& name) {
  const Text wanted = Plain(key), value = LowerCase(name);
  for (const Device& device : Devices()) {
    if (wanted != Plain(Text(kBranch) + L"\\" + device.Key + L"\\" + device.Instance)) continue;
    if (value == L"productid") return device.Product;
    if (value == L"scsitargetid") return device.Target;
    if (value == L"scsilun") return L"0";
    if (value == L"currentdriveletterassignment") return device.Letter;
    // On this system, inserting a disc does not start anything.
    if (value == L"autoinsertnotification") return L"0";
  }
  return {};
}

}  // namespace vantora
