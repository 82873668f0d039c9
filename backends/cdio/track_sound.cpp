#include "backends/cdio/track_sound.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace vantora {

namespace {

constexpr int kNowhere = -0x7fffffff;

int EndOf(const CdTrack& track) {
  return track.Start + track.Sectors;
}

}  // namespace

TrackSound::TrackSound(std::shared_ptr<Disc> disc, int track, int offset)
    : disc_(std::move(disc)), split_(kSectorBytes), splitAt_(kNowhere) {
  const CdToc& toc = disc_->Toc();
  sectors_ = toc.Track(track).Sectors;
  emphasis_ = toc.Track(track).Preemphasis;
  int whole = offset / kSectorFrames, rest = offset % kSectorFrames;
  if (rest < 0) {
    rest += kSectorFrames;
    --whole;
  }
  first_ = toc.Track(track).Start + whole;
  restBytes_ = rest * kFrameBytes;

  int front = track, back = track;
  const auto joined = [&toc](int left) {
    return toc.Track(left).Audio && toc.Track(left + 1).Audio &&
           EndOf(toc.Track(left)) == toc.Track(left + 1).Start;
  };
  while (front > 1 && joined(front - 1)) --front;
  while (back < toc.Count() && joined(back)) ++back;
  from_ = front == 1 ? 0 : toc.Track(front).Start;
  to_ = EndOf(toc.Track(back));
}

bool TrackSound::Read(int sector, int count, char* target) {
  if (emphasis_ && sector != next_) {
    // The sector before is filtered first, so that the filter has the right state.
    std::vector<char> before(kSectorBytes);
    deEmphasis_.Reset();
    if (Moved(sector - 1, 1, before.data())) deEmphasis_.Apply(before.data(), kSectorFrames);
    next_ = sector;
  }
  if (!Moved(sector, count, target)) return false;
  if (emphasis_) {
    deEmphasis_.Apply(target, static_cast<std::size_t>(count) * kSectorFrames);
    next_ = sector + count;
  }
  return true;
}

bool TrackSound::Moved(int sector, int count, char* target) {
  const int first = first_ + sector;
  if (restBytes_ == 0) return FromDisc(first, count, target);
  if (splitAt_ != first) {
    splitAt_ = kNowhere;
    if (!FromDisc(first, 1, split_.data())) return false;
    splitAt_ = first;
  }
  const std::size_t bytes = static_cast<std::size_t>(count) * kSectorBytes;
  ahead_.resize(bytes);
  if (!FromDisc(first + 1, count, ahead_.data())) return false;
  const auto rest = static_cast<std::size_t>(restBytes_);
  std::memcpy(target, split_.data() + rest, kSectorBytes - rest);
  std::memcpy(target + (kSectorBytes - rest), ahead_.data(), bytes - (kSectorBytes - rest));
  std::memcpy(split_.data(), ahead_.data() + (bytes - kSectorBytes), kSectorBytes);
  splitAt_ = first + count;
  return true;
}

bool TrackSound::FromDisc(int sector, int count, char* target) {
  const int begin = std::clamp(from_, sector, sector + count);
  const int end = std::clamp(to_, begin, sector + count);
  const auto bytes = [](int sectors) { return static_cast<std::size_t>(sectors) * kSectorBytes; };
  std::memset(target, 0, bytes(begin - sector));
  std::memset(target + bytes(end - sector), 0, bytes(sector + count - end));
  return begin == end || disc_->ReadCarefully(begin, end - begin, target + bytes(begin - sector));
}

}  // namespace vantora
