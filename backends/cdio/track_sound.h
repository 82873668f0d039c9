// The sound of one track as its wave holds it, sector by sector: moved by the offset of the drive,
// and without pre-emphasis. Beyond the sound that lies around the track on the disc is silence: in
// front of sector 0, behind the end of the session, on data tracks.
#pragma once

#include "backends/cdio/de_emphasis.h"
#include "backends/cdio/disc.h"

#include <memory>
#include <vector>

namespace vantora {

class TrackSound {
 public:
  // Sector 0 begins `offset` frames behind the place that the table of contents gives.
  TrackSound(std::shared_ptr<Disc> disc, int track, int offset);

  int Sectors() const { return sectors_; }
  int CarefulSectors() const { return disc_->CarefulSectors(); }
  // With all care; false when a sector of them cannot be read, which can be tried again. Sectors
  // that follow each other are read fastest.
  bool Read(int sector, int count, char* target);

 private:
  bool Moved(int sector, int count, char* target);
  bool FromDisc(int sector, int count, char* target);

  std::shared_ptr<Disc> disc_;
  int sectors_ = 0;
  int first_ = 0;            // sector of the disc in which sector 0 begins
  int restBytes_ = 0;        // how far in it
  int from_ = 0, to_ = 0;    // sectors of the disc between which there is sound to read
  std::vector<char> split_;  // the sector of the disc at which the last read has ended
  std::vector<char> ahead_;
  int splitAt_ = 0;
  bool emphasis_ = false;
  DeEmphasis deEmphasis_;
  int next_ = -1;  // sector with which the filter goes on
};

}  // namespace vantora
