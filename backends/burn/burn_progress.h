// Turns libburn's progress into the events that a user sees: all tracks in order, none left out
// however rarely the progress is read.
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
  BurnProgress(std::vector<Track> tracks, bool wholeDisc, PostEvent tell)
      : tracks_(std::move(tracks)), wholeDisc_(wholeDisc), tell_(std::move(tell)) {}

  void LeadIn();  // reports it once
  // `sector` sectors of track `track` (from 0) have gone to the drive.
  void At(int track, int sector);
  void LeadOut(bool fixating);  // all sectors are in the drive; reports it once

 private:
  void Open(int track);
  void Close(int track);
  void Percent(int percent);
  void Disc(int sector);

  std::vector<Track> tracks_;
  bool wholeDisc_;
  PostEvent tell_;
  int track_ = -1;  // reported last
  int percent_ = -1;
  bool in_ = false, out_ = false;
};

}  // namespace vantora
