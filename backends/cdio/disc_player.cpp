#include "backends/cdio/disc_player.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <cwchar>
#include <vector>

namespace vantora {

namespace {

constexpr int kMciNoAccess = 0;  // below 500: the device does not answer

// Sound of a disc from one sector to another. Only one thread may use it at a time.
class DiscSound {
 public:
  DiscSound(std::shared_ptr<Disc> disc, int from, int to)
      : disc_(std::move(disc)), next_(from), to_(to) {}

  std::size_t operator()(std::int16_t* target, std::size_t frames) {
    std::size_t given = 0;
    while (given < frames && (left_ > 0 || Fetch())) {
      const std::size_t part = std::min(frames - given, left_);
      std::memcpy(target + given * 2, &block_[block_.size() - left_ * 2], part * 4);
      given += part;
      left_ -= part;
    }
    return given;
  }

 private:
  static constexpr int kBlockSectors = 8;

  // A sector that cannot be read ends the sound: the sectors behind it would take a drive many
  // seconds.
  bool Fetch() {
    const int count = std::min(kBlockSectors, to_ - next_);
    if (count <= 0) return false;
    block_.resize(static_cast<std::size_t>(count) * kSectorFrames * 2);
    if (!disc_->Read(next_, count, block_.data())) return false;
    next_ += count;
    left_ = block_.size() / 2;
    return true;
  }

  std::shared_ptr<Disc> disc_;
  int next_, to_;
  std::vector<std::int16_t> block_;
  std::size_t left_ = 0;  // frames at the end of the block that have not been played
};

// The sector at which playing from `sector` ends. It is `sector` itself when no sound is there.
int EndOfSound(const CdToc& toc, int sector) {
  int end = sector;
  for (int track = toc.TrackAt(sector); track <= toc.Count() && toc.Track(track).Audio; ++track) {
    end = toc.Track(track).Start + toc.Track(track).Sectors;
    if (end < toc.End(track)) break;  // a session ends here
  }
  return std::max(end, sector);
}

Text LowerCase(Text text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](wchar_t c) { return c >= L'A' && c <= L'Z' ? c - (L'A' - L'a') : c; });
  return text;
}

}  // namespace

void DiscPlayer::UpdateInterval(int ms) {
  intervalMs_ = ms;
  interval_ = std::make_shared<int>(0);
  if (ms <= 0) return;
  loop_.PostAfter(ms, [this, watch = std::weak_ptr<int>(interval_)] { Tick(watch); });
}

void DiscPlayer::Tick(const std::weak_ptr<int>& interval) {
  if (interval.expired()) return;
  loop_.PostAfter(intervalMs_, [this, interval] { Tick(interval); });
  if (IsOpen() && StatusUpdate) StatusUpdate();
}

void DiscPlayer::Command(const Text& command) {
  const Text what = LowerCase(command);
  if (what == L"open") return Open();
  if (!IsOpen()) return;
  if (what == L"close") Close();
  if (what == L"play") Play();
  if (what == L"stop") Stop();
  if (what == L"pause" && mode_ == kMciPlay) Halt(kMciPause);
  if (what == L"seek") Seek();
}

void DiscPlayer::Open() {
  Close();
  const auto drive = drives_.Named(fileName_);
  if (!drive) return;
  drive_ = *drive;
  mode_ = drives_.MayUse(drive_) ? kMciReady : kMciNoAccess;
  if (!IsOpen()) return;
  LookAtMedium();
}

void DiscPlayer::Close() {
  stream_.reset();
  disc_.reset();
  mode_ = kMciNotOpen;
}

// Notices when a disc is taken out or inserted.
void DiscPlayer::LookAtMedium() {
  if (stream_) return;  // the stream's thread uses the disc; a disc that is gone ends the sound
  if (disc_ && disc_->StillThere()) return;
  if (disc_ && mode_ != kMciReady) mode_ = kMciStop;
  disc_ = drives_.Open(drive_, &fault_);
  sector_ = disc_ ? disc_->Toc().Track(1).Start : 0;
}

void DiscPlayer::Play() {
  LookAtMedium();
  if (!disc_ || stream_) return;
  const int end = EndOfSound(disc_->Toc(), sector_);
  if (end == sector_) return;
  stream_ = output_.Play(
      DiscSound(disc_, sector_, end), [this] { Halt(kMciStop); }, kSoundAheadMs);
  mode_ = kMciPlay;
}

void DiscPlayer::Halt(int mode) {
  sector_ = Sector();
  stream_.reset();
  mode_ = mode;
}

void DiscPlayer::Stop() {
  Halt(kMciStop);
  if (disc_) sector_ = disc_->Toc().Track(disc_->Toc().TrackAt(sector_)).Start;
}

void DiscPlayer::Seek() {
  Halt(kMciStop);
  LookAtMedium();
  if (!disc_) return;
  const CdToc& toc = disc_->Toc();
  const auto packed = static_cast<std::uint32_t>(to_);
  const auto byte = [packed](unsigned place) {
    return static_cast<int>(packed >> (8 * place) & 0xFFU);
  };
  int sector = 0;
  if (format_ == kMciTmsf) {
    if (!toc.Has(byte(0))) return;
    sector = toc.Track(byte(0)).Start + (byte(1) * 60 + byte(2)) * kSectorsPerSecond + byte(3);
  } else if (format_ == kMciMsf) {
    sector = (byte(0) * 60 + byte(1)) * kSectorsPerSecond + byte(2) - kCdLeadInSectors;
  } else {
    sector = static_cast<int>(std::int64_t{to_} * kSectorsPerSecond / 1000) - kCdLeadInSectors;
  }
  if (sector >= 0 && sector < toc.LeadOut) sector_ = sector;
}

int DiscPlayer::Sector() const {
  return sector_ + (stream_ ? static_cast<int>(stream_->Heard() / kSectorFrames) : 0);
}

DiscPlayer::Place DiscPlayer::Here() const {
  const int sector = Sector();
  const int track = disc_->Toc().TrackAt(sector);
  return {track, std::max(sector - disc_->Toc().Track(track).Start, 0)};
}

int DiscPlayer::Tracks() {
  if (!IsOpen()) return 0;
  LookAtMedium();
  return disc_ ? disc_->Toc().Count() : 0;
}

int DiscPlayer::InFormat(int track) const {
  if (!disc_) return 0;
  const int sectors = MciSectors(disc_->Toc(), track);
  return format_ == kMciMilliseconds ? CdMilliseconds(sectors)
                                     : static_cast<int>(PackedMsf(sectors));
}

int DiscPlayer::TrackLength() {
  return disc_ && disc_->Toc().Has(track_) ? InFormat(track_) : 0;
}

int DiscPlayer::Position() {
  if (!disc_) return 0;
  if (format_ == kMciTmsf) {
    const Place here = Here();
    return static_cast<int>(static_cast<std::uint32_t>(here.Track) | PackedMsf(here.Sectors) << 8U);
  }
  const int onDisc = Sector() + kCdLeadInSectors;
  return format_ == kMciMilliseconds ? CdMilliseconds(onDisc) : static_cast<int>(PackedMsf(onDisc));
}

Text DiscPlayer::PositionText() {
  if (!disc_) return {};
  const Place here = Here();
  std::array<wchar_t, 32> text{};
  std::swprintf(text.data(), text.size(), L"%02d:%02d:%02d:%02d", here.Track,
                here.Sectors / kSectorsPerSecond / 60, here.Sectors / kSectorsPerSecond % 60,
                here.Sectors % kSectorsPerSecond);
  return text.data();
}

}  // namespace vantora
