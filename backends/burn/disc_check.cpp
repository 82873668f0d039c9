#include "backends/burn/disc_check.h"

#include "platform/cd_sound.h"
#include "platform/mcd.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace vantora {

namespace {

constexpr int kMostShift = 1500;  // frames; the drives on the market stay below
constexpr int kShiftSectors = kMostShift / kSectorFrames + 1;
constexpr int kBlockSectors = 26;      // read at once
constexpr int kProbeFrames = 4096;     // compared while a shift is searched for
constexpr std::size_t kMostTries = 8;  // shifts that fit the probe, as in a steady tone

struct Unreadable {};

// Skips the first `frames` of a track's wave.
void Skip(PartReader& wave, std::int64_t frames) {
  std::vector<char> skipped(static_cast<std::size_t>(frames * kFrameBytes));
  wave.Read(skipped.data(), frames * kFrameBytes);
}

}  // namespace

DiscCheck::DiscCheck(Dateien& files, BurntDisc disc, std::function<bool()> unwanted)
    : files_(files), disc_(std::move(disc)), unwanted_(std::move(unwanted)) {}

void DiscCheck::Run(const std::vector<PlannedTrack>& tracks, const Report& report) {
  try {
    for (std::size_t i = 0; i < tracks.size(); ++i) {
      const int number = static_cast<int>(i) + 1;
      report(number, kMcdVerifyBegins);
      const bool there = i < disc_.Starts.size() &&
                         disc_.Starts[i] + tracks[i].Sectors <=
                             (i + 1 < disc_.Starts.size() ? disc_.Starts[i + 1] : disc_.LeadOut);
      report(number, there ? Track(tracks[i], disc_.Starts[i]) : kMcdVerifyDiffers);
    }
  } catch (const GivenUp&) {
    // The tracks that are left are not reported.
  }
}

int DiscCheck::Track(const PlannedTrack& track, int start) {
  try {
    if (Same(track, start, shift_)) return kMcdVerifySame;
    for (const int shift : Shifts(track, start)) {
      if (shift == shift_ || !Same(track, start, shift)) continue;
      shift_ = shift;
      return kMcdVerifySame;
    }
    return kMcdVerifyDiffers;
  } catch (const Unreadable&) {
    return kMcdVerifyFailed;
  } catch (const std::exception&) {  // of the wave
    return kMcdVerifyFailed;
  }
}

bool DiscCheck::Same(const PlannedTrack& track, int start, int shift) {
  PartReader wave(files_, track.Parts);
  Skip(wave, std::max(-shift, 0));
  std::vector<char> disc, ours;
  std::int64_t skip = std::int64_t{std::max(shift, 0)} * kFrameBytes;  // of the disc
  const int sectors = static_cast<int>(track.Sectors);
  for (int done = 0; done < sectors && wave.Left() > 0; done += kBlockSectors) {
    Read(start + done, std::min(kBlockSectors, sectors - done), disc);
    const std::int64_t bytes = std::min(static_cast<std::int64_t>(disc.size()) - skip, wave.Left());
    ours.resize(static_cast<std::size_t>(bytes));
    wave.Read(ours.data(), bytes);
    if (std::memcmp(ours.data(), disc.data() + skip, ours.size()) != 0) return false;
    skip = 0;
  }
  return true;
}

// The shifts at which a piece of the wave is found on the disc, the smallest first. The piece
// begins with the first sound behind the frames that a shift may move out of the track.
std::vector<int> DiscCheck::Shifts(const PlannedTrack& track, int start) {
  const int sectors = static_cast<int>(track.Sectors);
  PartReader wave(files_, track.Parts);
  Skip(wave, std::int64_t{kShiftSectors} * kSectorFrames);
  std::vector<char> block(static_cast<std::size_t>(kBlockSectors * kSectorBytes));
  auto sound = block.end();
  int at = kShiftSectors;  // sector of the block in the track
  for (; at + kBlockSectors + kShiftSectors <= sectors; at += kBlockSectors) {
    if (unwanted_()) throw GivenUp{};
    wave.Read(block.data(), static_cast<std::int64_t>(block.size()));
    sound = std::find_if(block.begin(), block.end(), [](char byte) { return byte != 0; });
    if (sound != block.end()) break;
  }
  std::vector<int> shifts;
  if (sound == block.end()) return shifts;
  constexpr std::size_t kProbe = std::size_t{kProbeFrames} * kFrameBytes;
  const auto first = static_cast<std::size_t>(sound - block.begin());
  const std::size_t from = std::min(first - first % kFrameBytes, block.size() - kProbe);
  std::vector<char> disc;
  Read(start + at - kShiftSectors, kBlockSectors + 2 * kShiftSectors, disc);
  for (int shift = -kMostShift; shift <= kMostShift; ++shift) {
    const std::ptrdiff_t back = std::ptrdiff_t{kShiftSectors} * kSectorBytes;
    const char* place = disc.data() + from + back + std::ptrdiff_t{shift} * kFrameBytes;
    if (std::memcmp(block.data() + from, place, kProbe) == 0) shifts.push_back(shift);
  }
  std::sort(shifts.begin(), shifts.end(), [](int a, int b) { return std::abs(a) < std::abs(b); });
  shifts.resize(std::min(shifts.size(), kMostTries));
  return shifts;
}

void DiscCheck::Read(int sector, int count, std::vector<char>& target) {
  if (unwanted_()) throw GivenUp{};
  target.resize(static_cast<std::size_t>(count) * kSectorBytes);
  if (!disc_.Read(sector, count, target.data())) throw Unreadable{};
}

}  // namespace vantora
