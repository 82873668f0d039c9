#include "backends/cdio/disc.h"

namespace vantora {

int CdToc::TrackAt(int sector) const {
  int track = 1;
  while (track < Count() && sector >= End(track)) ++track;
  return track;
}

int MciSectors(const CdToc& toc, int track) {
  if (toc.Tracks.empty()) return 0;
  if (track == 0) return toc.LeadOut - toc.Track(1).Start - 1;
  return toc.End(track) - toc.Track(track).Start - (track == toc.Count() ? 1 : 0);
}

int CdMilliseconds(int sectors) {
  return static_cast<int>(std::int64_t{sectors} * 1000 / kSectorsPerSecond);
}

std::uint32_t PackedMsf(int sectors) {
  const auto frames = static_cast<std::uint32_t>(sectors % kSectorsPerSecond);
  const auto seconds = static_cast<std::uint32_t>(sectors / kSectorsPerSecond % 60);
  const auto minutes = static_cast<std::uint32_t>(sectors / kSectorsPerSecond / 60);
  return minutes | seconds << 8U | frames << 16U;
}

std::uint32_t DiscNumber(const CdToc& toc) {
  std::uint32_t number = 0;
  for (const CdTrack& track : toc.Tracks) {
    const std::uint32_t start = PackedMsf(track.Start + kCdLeadInSectors);
    number += (start & 0xFFU) << 16U | (start & 0xFF00U) | start >> 16U;
  }
  if (!toc.Tracks.empty() && toc.Count() <= 2) {
    number += static_cast<std::uint32_t>(toc.LeadOut - toc.Track(1).Start);
  }
  return number;
}

}  // namespace vantora
