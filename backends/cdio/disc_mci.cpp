#include "backends/cdio/disc_mci.h"

#include <string>

namespace vantora {

Text DiscMci::mciSendString(const Text& command) {
  return command == L"status cd position" ? player_.PositionText() : Text();
}

Text DiscMci::MediaIdentity(const Text& drive) {
  const auto found = drives_.Named(drive);
  const auto disc = found ? drives_.Open(*found) : nullptr;
  return disc ? std::to_wstring(DiscNumber(disc->Toc())) : Text();
}

int DiscMci::MCI_OPEN(const Text& drive) {
  const auto found = drives_.Named(drive);
  auto disc = found ? drives_.Open(*found) : nullptr;
  if (!disc) return -1;
  const int device = devices_.empty() ? 1 : devices_.rbegin()->first + 1;
  devices_[device].Medium = std::move(disc);
  return device;
}

bool DiscMci::MCI_SET(int device, int timeFormat) {
  const auto found = devices_.find(device);
  const bool known =
      timeFormat == kMciMilliseconds || timeFormat == kMciMsf || timeFormat == kMciTmsf;
  if (found == devices_.end() || !known) return false;
  found->second.Format = timeFormat;
  return true;
}

std::int32_t DiscMci::MCI_STATUS(int device, int item, int track) {
  const auto found = devices_.find(device);
  if (found == devices_.end() || !found->second.Medium->StillThere()) return -1;
  const CdToc& toc = found->second.Medium->Toc();
  const int format = found->second.Format;
  const auto time = [format](int sectors) {
    return format == kMciMilliseconds ? CdMilliseconds(sectors)
                                      : static_cast<int>(PackedMsf(sectors));
  };
  if (item == kMciNumberOfTracks) return toc.Count();
  if (track != 0 && !toc.Has(track)) return -1;
  if (item == kMciLength) return time(MciSectors(toc, track));
  if (item != kMciPosition) return -1;
  if (format == kMciTmsf) return track == 0 ? 1 : track;  // the start of the track
  return time(toc.Track(track == 0 ? 1 : track).Start + kCdLeadInSectors);
}

}  // namespace vantora
