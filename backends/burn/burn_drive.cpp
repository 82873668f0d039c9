#include "backends/burn/burn_drive.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <memory>
#include <thread>

namespace vantora {

namespace {

constexpr int kProfileCdR = 0x09, kProfileCdRw = 0x0A;
constexpr unsigned kTrackAtOnceFeature = 0x2D, kMasteringFeature = 0x2E;
constexpr unsigned char kSessionAtOnceBit = 0x20;  // in the first byte of the mastering feature
constexpr auto kScanPause = std::chrono::milliseconds(5);

// The first byte of a drive's description of a feature; nothing when the drive does not have the
// feature.
std::optional<unsigned char> Feature(burn_drive* drive, unsigned code) {
  unsigned char flags = 0, length = 0;
  unsigned char* data = nullptr;
  const bool there = burn_drive_get_feature(drive, code, &flags, &length, &data, nullptr) > 0;
  const std::unique_ptr<unsigned char, decltype(&std::free)> owner(data, &std::free);
  if (!there) return std::nullopt;
  return length > 0 ? data[0] : static_cast<unsigned char>(0);
}

std::vector<int> Speeds(burn_drive* drive) {
  std::vector<int> speeds;
  burn_speed_descriptor* list = nullptr;
  burn_drive_get_speedlist(drive, &list);
  for (const burn_speed_descriptor* one = list; one != nullptr; one = one->next) {
    if (one->write_speed > 0) speeds.push_back(one->write_speed);
  }
  burn_drive_free_speedlist(&list);
  std::sort(speeds.begin(), speeds.end());
  speeds.erase(std::unique(speeds.begin(), speeds.end()), speeds.end());
  return speeds;
}

DriveAbilities Abilities(burn_drive_info& info) {
  DriveAbilities abilities;
  if (info.write_cdr == 0 && info.write_cdrw == 0) return abilities;
  const auto tracks = Feature(info.drive, kTrackAtOnceFeature);
  const auto mastering = Feature(info.drive, kMasteringFeature);
  if (tracks || mastering) {
    abilities.TrackAtOnce = tracks.has_value();
    abilities.DiscAtOnce = mastering && (*mastering & kSessionAtOnceBit) != 0;
  } else {
    // Drives older than the list of features are probed by setting each write method in turn.
    burn_drive_probe_cd_write_modes(&info);
    abilities.TrackAtOnce = info.tao_block_types != 0;
    abilities.DiscAtOnce = info.sao_block_types != 0;
  }
  abilities.Speeds = Speeds(info.drive);
  return abilities;
}

}  // namespace

std::optional<DriveAbilities> ExamineDrive(const BurnLibrary& /*library*/,
                                           const std::string& device) {
  if (HoldOf(device) != DriveHold::Free) return std::nullopt;
  std::string name = device;
  burn_drive_clear_whitelist();
  burn_drive_add_whitelist(name.data());
  burn_drive_info* infos = nullptr;
  unsigned count = 0;
  int done = 0;
  while ((done = burn_drive_scan(&infos, &count)) == 0) std::this_thread::sleep_for(kScanPause);
  std::optional<DriveAbilities> abilities;
  if (done > 0 && count > 0) abilities = Abilities(infos[0]);
  if (infos != nullptr) burn_drive_info_free(infos);
  return abilities;
}

HeldDrive::HeldDrive(const BurnLibrary& /*library*/, const std::string& device) {
  if (HoldOf(device) != DriveHold::Free) return;
  std::string name = device;
  if (burn_drive_scan_and_grab(&infos_, name.data(), 1) > 0) drive_ = infos_[0].drive;
}

HeldDrive::~HeldDrive() {
  // The library has already released a drive that was unplugged meanwhile.
  if (drive_ != nullptr) burn_drive_release(drive_, eject_ ? 1 : 0);
  if (infos_ != nullptr) burn_drive_info_free(infos_);
}

bool HeldDrive::HasBlankCd() const {
  int profile = 0;
  std::array<char, 80> name{};
  burn_disc_get_profile(drive_, &profile, name.data());
  return burn_disc_get_status(drive_) == BURN_DISC_BLANK &&
         (profile == kProfileCdR || profile == kProfileCdRw);
}

}  // namespace vantora
