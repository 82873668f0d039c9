// The sound of one track as its wave file holds it, sector by sector: shifted by the read offset of
// the drive, and without pre-emphasis. Silence stands in for everything outside the audio sectors
// around the track: before sector 0, after the end of the session, and on data tracks.
#pragma once

#include "backends/cdio/de_emphasis.h"
#include "backends/cdio/disc.h"

#include <memory>
#include <vector>

namespace vantora {

class TrackSound {
 public:
  // Sector 0 of the sound begins `offset` frames after the start in the table of contents.
  TrackSound(std::shared_ptr<Disc> disc, int track, int offset);

  int Sectors() const { return sectors_; }
  int CarefulSectors() const { return disc_->CarefulSectors(); }
  // Reads carefully. Returns false when a sector cannot be read; the call may be repeated. Reading
  // sectors in order is fastest.
  bool Read(int sector, int count, char* target);

 private:
  bool Moved(int sector, int count, char* target);
  bool FromDisc(int sector, int count, char* target);

  std::shared_ptr<Disc> disc_;
  int sectors_ = 0;
  int first_ = 0;            // disc sector in which sector 0 begins
  int restBytes_ = 0;        // bytes from the start of that sector
  int from_ = 0, to_ = 0;    // range of disc sectors with sound to read
  std::vector<char> split_;  // the disc sector at which the last read ended
  std::vector<char> ahead_;
  int splitAt_ = 0;
  bool emphasis_ = false;
  DeEmphasis deEmphasis_;
  int next_ = -1;  // sector that continues the filter's state
};

}  // namespace vantora
