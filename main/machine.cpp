#include "main/machine.h"

#include "backends/burn/burn_library.h"
#include "backends/cdio/drive_disc.h"
#include "backends/linux/utf8.h"

#include <algorithm>
#include <cwchar>
#include <memory>
#include <string_view>

namespace vantora {

namespace {

// The spelling of a product's name in the keys of the registry.
Text KeyWord(const Text& product) {
  Text word = UpperCase(product);
  std::replace(word.begin(), word.end(), L'\\', L'_');
  return word;
}

}  // namespace

std::vector<BurnDevice> DrivesForWriting(const DriveTable& table) {
  std::vector<BurnDevice> devices;
  for (const OpticalDrive& drive : table.Places().Optical) {
    devices.push_back(
        {drive.Device, drive.Vendor, KeyWord(drive.Product), drive.Revision, drive.Target});
  }
  return devices;
}

std::optional<BurntDisc> OpenWritten(const std::string& device) {
  const std::shared_ptr<DriveDisc> disc = DriveDisc::Open(device);
  if (!disc) return std::nullopt;
  BurntDisc burnt;
  for (const CdTrack& track : disc->Toc().Tracks) burnt.Starts.push_back(track.Start);
  burnt.LeadOut = disc->Toc().LeadOut;
  burnt.Read = [disc](int sector, int count, void* target) {
    return disc->Read(sector, count, target);
  };
  burnt.ReadCarefully = [disc](int sector, int count, void* target) {
    return disc->ReadCarefully(sector, count, target);
  };
  return burnt;
}

std::vector<DiscDrive> DrivesForDiscs(const DriveTable& table, Registry& registry) {
  const Text branch = L"ENUM\\SCSI\\";
  std::vector<DiscDrive> drives;
  for (const DriveEntry& entry : table.Entries()) {
    if (entry.Type != kDriveCdRom) continue;
    DiscDrive drive;
    drive.Letter = entry.Letter;
    drive.Device = entry.Device;
    if (entry.Device.empty()) drive.Tray = Text(1, entry.Letter) + L":\\";
    for (const Text& kind : registry.SubKeys(branch)) {
      const Text below = branch + kind;
      for (const Text& instance : registry.SubKeys(below)) {
        Text key = below;
        key.append(L"\\").append(instance);
        if (registry.Value(key, L"CurrentDriveLetterAssignment") != Text(1, entry.Letter)) continue;
        drive.Product = KeyWord(registry.Value(key, L"ProductID"));
        const Text target = registry.Value(key, L"SCSITargetID");
        drive.Target = static_cast<int>(std::wcstol(target.c_str(), nullptr, 10));
      }
    }
    drives.push_back(drive);
  }
  return drives;
}

std::filesystem::path ResourceFolder() {
  std::error_code none;
  const std::filesystem::path program =
      std::filesystem::read_symlink("/proc/self/exe", none).parent_path();
  for (const auto& folder : {program / "resources", program / ".." / "share" / "vantora"}) {
    if (std::filesystem::exists(folder / "strings.tsv", none)) return folder;
  }
  return {};
}

Text ProgramVersion() {
  constexpr std::string_view kVersion = VANTORA_VERSION;
  return {kVersion.begin(), kVersion.end()};
}

std::map<Text, Text> ComponentVersions() {
  return {{L"wnaspi32.dll", BurnLibraryVersion()},
          {L"winaspi.dll", DiscLibraryVersion()},
          {L"iosubsys/apix.vxd", ProgramVersion()}};
}

}  // namespace vantora
