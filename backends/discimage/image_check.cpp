#include "backends/discimage/image_check.h"

#include "platform/cd_sound.h"
#include "platform/mcd.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <utility>

namespace vantora {

namespace {

using Time = std::chrono::steady_clock;

constexpr std::int64_t kBlockBytes = 1 << 17;  // fits the cache, twice
constexpr auto kSliceTime = std::chrono::milliseconds(25);

}  // namespace

ImageCheck::ImageCheck(Dateien& files, Image image, std::vector<PlannedTrack> tracks, Report report)
    : files_(files),
      image_(std::move(image)),
      tracks_(std::move(tracks)),
      report_(std::move(report)),
      ours_(kBlockBytes),
      theirs_(kBlockBytes) {}

// The image has been written well as far as the system knows, so an error of this check concerns a
// track or the check, and never the burn.
bool ImageCheck::Slice() noexcept {
  if (!written_ && !Open()) {
    report_(0, kMcdVerifyFailed);
    return false;
  }
  const auto until = Time::now() + kSliceTime;
  const std::size_t track = track_;
  while (track_ == track && Time::now() < until) {
    try {
      Compare();
    } catch (const std::exception&) {
      EndTrack(kMcdVerifyFailed);
    }
  }
  return track_ < tracks_.size();
}

// Without its sheet, no track of an image can be found.
bool ImageCheck::Open() {
  try {
    written_ = files_.Open(image_.Sound, Zugriff::Lesen);
    std::string sheet(image_.Wanted.size() + 1, '\0');
    sheet.resize(files_.Open(image_.Sheet, Zugriff::Lesen)->ReadSome(sheet.data(), sheet.size()));
    return sheet == image_.Wanted;
  } catch (const std::exception&) {
    return false;
  }
}

void ImageCheck::Compare() {
  if (!sound_) BeginTrack();
  const std::int64_t bytes = std::min(kBlockBytes, sound_->Left());
  const auto count = static_cast<std::size_t>(bytes);
  sound_->Read(ours_.data(), bytes);
  const bool same = written_->ReadSome(theirs_.data(), count) == count &&
                    std::memcmp(ours_.data(), theirs_.data(), count) == 0;
  if (!same) return EndTrack(kMcdVerifyDiffers);
  if (sound_->Left() == 0) EndTrack(kMcdVerifySame);
}

void ImageCheck::BeginTrack() {
  const PlannedTrack& track = tracks_[track_];
  report_(static_cast<int>(track_) + 1, kMcdVerifyBegins);
  sound_ = std::make_unique<PartReader>(files_, track.Parts);
  written_->Seek((track.Start - track.Gap) * kSectorBytes);
}

void ImageCheck::EndTrack(int state) {
  sound_.reset();
  ++track_;
  report_(static_cast<int>(track_), state);
}

}  // namespace vantora
