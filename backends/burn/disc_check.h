// Reads the tracks of a disc that was just written and compares them with their waves.
//
// A drive returns the sound a little early or late, and by the same number of samples for all of a
// disc. This shift is searched for, so that an honest drive is not blamed. The samples that it
// moves across the border of a track, some milliseconds, are not compared.
#pragma once

#include "backends/burn/burn_order.h"
#include "backends/sound/disc/disc_plan.h"

#include "platform/files.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace vantora {

class DiscCheck {
 public:
  using Report = std::function<void(int track, int state)>;  // as MCD_Verify

  // The check ends early when `unwanted` returns true.
  DiscCheck(Dateien& files, BurntDisc disc, std::function<bool()> unwanted);

  void Run(const std::vector<PlannedTrack>& tracks, const Report& report);

 private:
  struct GivenUp {};

  int Track(const PlannedTrack& track, int start);
  bool Same(const PlannedTrack& track, int start, int shift);
  std::vector<int> Shifts(const PlannedTrack& track, int start);
  void Read(int sector, int count, std::vector<char>& target);

  Dateien& files_;
  BurntDisc disc_;
  std::function<bool()> unwanted_;
  int shift_ = 0;  // frames by which the sound of the tracks so far came late
};

}  // namespace vantora
