// From how far libburn has come to the events that a user follows: tracks in order, none left out
// however seldom one looks.
#pragma once

#include "backends/burn/burn_order.h"

#include <utility>
#include <vector>

namespace vantora {

class BurnProgress {
 public:
  struct Track {
    Text File;
    int Sectors = 0;
  };
  BurnProgress(std::vector<Track> tracks, bool wholeDisc, TellEvent tell)
      : tracks_(std::move(tracks)), wholeDisc_(wholeDisc), tell_(std::move(tell)) {}

  void LeadIn();  // once
  // Of track `track`, from 0, so many sectors have gone to the drive.
  void At(int track, int sector);
  void LeadOut(bool fixating);  // all of it lies in the drive; once

 private:
  void Open(int track);
  void Close(int track);
  void Percent(int percent);
  void Disc(int sector);

  std::vector<Track> tracks_;
  bool wholeDisc_;
  TellEvent tell_;
  int track_ = -1;  // told last
  int percent_ = -1;
  bool in_ = false, out_ = false;
};

}  // namespace vantora
