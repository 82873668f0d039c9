#include "backends/burn/disc_check.h"

#include "platform/cd_sound.h"
#include "platform/mcd.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace vantora {

namespace {

constexpr int kMostShift = 5 * kSectorFrames;  // frames; drives of the market stay below four
constexpr int kBlockSectors = 26;              // read at once
constexpr int kProbeFrames = 4096;
// Two shifts differ by no more than this, so a sound shows within it which of them is right.
constexpr int kReach = 2 * kMostShift;
constexpr int kMostTries = 4;  // at shifts that fit a piece of a track, as in a steady tone

struct Unreadable {};

// All shifts, the smallest first.
std::vector<int> Shifts() {
  std::vector<int> shifts{0};
  for (int shift = 1; shift <= kMostShift; ++shift) shifts.insert(shifts.end(), {shift, -shift});
  return shifts;
}

}  // namespace

DiscCheck::DiscCheck(Dateien& files, BurntDisc disc, std::function<bool()> unwanted)
    : files_(files), disc_(std::move(disc)), unwanted_(std::move(unwanted)) {}

void DiscCheck::Run(const std::vector<PlannedTrack>& tracks, const Report& report,
                    const Percent& percent) {
  try {
    for (std::size_t i = 0; i < tracks.size(); ++i) {
      const int number = static_cast<int>(i) + 1;
      report(number, kMcdVerifyBegins);
      percent_ = [told = 0, &percent](int now) mutable {
        if (now <= told) return;  // a part of the track is read again
        told = now;
        percent(now);
      };
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
  int state = kMcdVerifyFailed;
  for (const bool carefully : {false, true}) {
    carefully_ = carefully;
    try {
      if (Found(track, start)) return kMcdVerifySame;
      state = kMcdVerifyDiffers;
    } catch (const Unreadable&) {
      state = kMcdVerifyFailed;
    } catch (const std::exception&) {  // of the wave
      return kMcdVerifyFailed;
    }
  }
  return state;
}

// Whether the wave is on the disc, with the shift of the tracks so far or with another one.
bool DiscCheck::Found(const PlannedTrack& track, int start) {
  std::int64_t frame = Difference(track, start, shift_);
  std::vector<int> shifts = Shifts();
  for (int tries = 0; frame >= 0 && tries < kMostTries; ++tries) {
    Narrow(shifts, track, start, frame);
    if (shifts.empty()) return false;
    frame = Difference(track, start, shifts.front());
    if (frame < 0) shift_ = shifts.front();
  }
  return frame < 0;
}

// The first frame of the wave that the disc does not have at this shift; negative for none.
std::int64_t DiscCheck::Difference(const PlannedTrack& track, int start, int shift) {
  PartReader wave(files_, track.Parts);
  std::int64_t frame = std::max(-shift, 0);
  wave.Skip(frame * kFrameBytes);
  std::int64_t skip = std::int64_t{std::max(shift, 0)} * kFrameBytes;  // of the disc
  std::vector<char> disc, ours;
  const auto sectors = static_cast<int>(track.Sectors);
  for (int done = 0; done < sectors && wave.Left() > 0; done += kBlockSectors) {
    const int count = std::min(kBlockSectors, sectors - done);
    Read(start + done, count, disc);
    const std::int64_t there = std::int64_t{count} * kSectorBytes;
    const std::int64_t bytes = std::clamp<std::int64_t>(there - skip, 0, wave.Left());
    ours.resize(static_cast<std::size_t>(bytes));
    wave.Read(ours.data(), bytes);
    const char* theirs = disc.data() + std::min(skip, there);
    if (std::memcmp(ours.data(), theirs, ours.size()) != 0) {
      const auto differs = std::mismatch(ours.begin(), ours.end(), theirs).first;
      return frame + (differs - ours.begin()) / kFrameBytes;
    }
    frame += bytes / kFrameBytes;
    skip = std::max<std::int64_t>(skip - there, 0);
    percent_((done + count) * 100 / sectors);
  }
  return -1;
}

// Removes the shifts at which the disc does not have the wave around this frame. The sound is
// distinct there, since the disc differs from it at a shift that fitted until then. Damage is in
// reach of every shift, so that none remains.
void DiscCheck::Narrow(std::vector<int>& shifts, const PlannedTrack& track, int start,
                       std::int64_t frame) {
  const std::int64_t end = track.Sectors * kSectorFrames;
  const std::int64_t from = std::max<std::int64_t>(frame - kReach, 0);
  const std::int64_t to = std::min(frame + kReach + kProbeFrames, end);
  std::vector<char> wave(static_cast<std::size_t>((to - from) * kFrameBytes));
  PartReader reader(files_, track.Parts);
  reader.Skip(from * kFrameBytes);
  reader.Read(wave.data(), static_cast<std::int64_t>(wave.size()));

  const std::int64_t first = std::max<std::int64_t>(from - kMostShift, 0) / kSectorFrames;
  const std::int64_t last = (std::min(to + kMostShift, end) + kSectorFrames - 1) / kSectorFrames;
  std::vector<char> disc, block;
  for (std::int64_t sector = first; sector < last; sector += kBlockSectors) {
    Read(start + static_cast<int>(sector),
         static_cast<int>(std::min<std::int64_t>(kBlockSectors, last - sector)), block);
    disc.insert(disc.end(), block.begin(), block.end());
  }
  const auto at = [](const std::vector<char>& sound, std::int64_t place) {
    return sound.data() + place * kFrameBytes;
  };
  std::erase_if(shifts, [&](int shift) {
    const std::int64_t begin = std::max<std::int64_t>(from, -shift);
    const std::int64_t count = std::min(to, end - shift) - begin;
    return count <= 0 ||
           std::memcmp(at(wave, begin - from), at(disc, begin + shift - first * kSectorFrames),
                       static_cast<std::size_t>(count * kFrameBytes)) != 0;
  });
}

void DiscCheck::Read(int sector, int count, std::vector<char>& target) {
  if (unwanted_()) throw GivenUp{};
  target.resize(static_cast<std::size_t>(count) * kSectorBytes);
  const auto& read = carefully_ ? disc_.ReadCarefully : disc_.Read;
  if (!read(sector, count, target.data())) throw Unreadable{};
}

}  // namespace vantora
