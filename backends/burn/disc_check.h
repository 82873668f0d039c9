// Reads the tracks of a disc that was just written and compares them with their waves.
//
// A drive returns the sound a little early or late, and by the same number of samples for all of a
// disc. This shift is searched for, so that an honest drive is not blamed. The samples that it
// moves across the border of a track, some milliseconds, are not compared.
//
// A track is read at full speed. Only one that seems to differ is read again with care.
#pragma once

#include "backends/burn/burn_order.h"
#include "backends/sound/disc/disc_plan.h"

#include "platform/files.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace vantora {

class DiscCheck {
 public:
  using Report = std::function<void(int track, int state)>;  // as MCD_Verify
  using Percent = std::function<void(int percent)>;          // of the track

  // The check ends early when `unwanted` returns true.
  DiscCheck(Dateien& files, BurntDisc disc, std::function<bool()> unwanted);

  void Run(const std::vector<PlannedTrack>& tracks, const Report& report, const Percent& percent);

 private:
  struct GivenUp {};

  int Track(const PlannedTrack& track, int start);
  bool Found(const PlannedTrack& track, int start);
  std::int64_t Difference(const PlannedTrack& track, int start, int shift);
  void Narrow(std::vector<int>& shifts, const PlannedTrack& track, int start, std::int64_t frame);
  void Read(int sector, int count, std::vector<char>& target);

  Dateien& files_;
  BurntDisc disc_;
  std::function<bool()> unwanted_;
  Percent percent_;
  int shift_ = 0;  // frames by which the sound of the tracks so far came late
  bool carefully_ = false;
};

}  // namespace vantora
