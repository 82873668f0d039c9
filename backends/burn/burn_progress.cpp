#include "backends/burn/burn_progress.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr int kAll = 100;

}  // namespace

void BurnProgress::LeadIn() {
  if (in_) return;
  in_ = true;
  tell_([](McdEvents& events) {
    if (events.MCD_WriteLeadIn) events.MCD_WriteLeadIn(0);
  });
}

void BurnProgress::At(int track, int sector) {
  if (out_ || track < track_) return;
  while (track_ < track && track_ + 1 < static_cast<int>(tracks_.size())) {
    if (track_ >= 0) Close(track_);
    Open(++track_);
  }
  const int sectors = std::max(tracks_[static_cast<std::size_t>(track_)].Sectors, 1);
  if (wholeDisc_) {
    Disc(sector);
  } else {
    Percent(static_cast<int>(std::min(std::int64_t{kAll}, std::int64_t{kAll} * sector / sectors)));
  }
}

void BurnProgress::Disc(int sector) {
  std::int64_t done = sector, total = 0;
  for (std::size_t i = 0; i < tracks_.size(); ++i) {
    if (static_cast<int>(i) < track_) done += tracks_[i].Sectors;
    total += tracks_[i].Sectors;
  }
  Percent(static_cast<int>(std::min(std::int64_t{kAll}, kAll * done / std::max(total, {1}))));
}

void BurnProgress::LeadOut(bool fixating) {
  if (out_) return;
  At(static_cast<int>(tracks_.size()) - 1, tracks_.back().Sectors);
  Close(track_);
  out_ = true;
  tell_([fixating](McdEvents& events) {
    if (events.MCD_WriteLeadOut) events.MCD_WriteLeadOut(0);
    if (fixating && events.MCD_Fixating) events.MCD_Fixating();
  });
}

void BurnProgress::Open(int track) {
  tell_([track, file = tracks_[static_cast<std::size_t>(track)].File](McdEvents& events) {
    if (events.MCD_ActTrack) events.MCD_ActTrack(track + 1);
    if (events.MCD_InfoMessage) events.MCD_InfoMessage(1, L"Open file " + file);
  });
  if (!wholeDisc_) percent_ = -1;
  if (percent_ < 0) Percent(0);
}

void BurnProgress::Close(int track) {
  if (!wholeDisc_) Percent(kAll);
  tell_([file = tracks_[static_cast<std::size_t>(track)].File](McdEvents& events) {
    if (events.MCD_InfoMessage) events.MCD_InfoMessage(1, L"Close file " + file);
  });
}

void BurnProgress::Percent(int percent) {
  if (percent == percent_) return;
  percent_ = percent;
  tell_([percent](McdEvents& events) {
    if (events.MCD_TrackPercent) events.MCD_TrackPercent(percent);
  });
}

}  // namespace vantora
