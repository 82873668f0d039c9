// Reads an image that was just written and compares its tracks with their waves, slice by slice.
#pragma once

#include "backends/sound/disc/disc_plan.h"

#include "platform/files.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vantora {

class ImageCheck {
 public:
  using Report = std::function<void(int track, int state)>;  // as MCD_Verify

  struct Image {
    Text Sound, Sheet;   // files
    std::string Wanted;  // content of the sheet
  };

  // The parts of a track include its gap.
  ImageCheck(Dateien& files, Image image, std::vector<PlannedTrack> tracks, Report report);

  // Compares a part of a track. Returns false when there is nothing left to compare.
  bool Slice() noexcept;

 private:
  bool Open();
  void Compare();
  void BeginTrack();
  void EndTrack(int state);

  Dateien& files_;
  Image image_;
  std::vector<PlannedTrack> tracks_;
  Report report_;
  std::unique_ptr<Datei> written_;
  std::unique_ptr<PartReader> sound_;  // of the track being compared
  std::size_t track_ = 0;              // from 0
  std::vector<char> ours_, theirs_;
};

}  // namespace vantora
