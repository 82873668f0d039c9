// An audio disc as its readers see it, whether it turns in a drive or lies in a folder.
//
// Places are logical sectors: 0 is two seconds into the disc, where the first track begins unless
// something is hidden in front of it. A sector holds 588 frames of 44.1 kHz, 16 bit, stereo,
// little-endian. Track numbers count from 1.
#pragma once

#include "platform/cd_sound.h"

#include <cstdint>
#include <vector>

namespace vantora {

constexpr int kCdSubchannelBytes = 96;  // that some images hold behind each sector
constexpr int kCdLeadInSectors = 150;   // from the disc's own zero to sector 0

struct CdTrack {
  int Start = 0;
  int Sectors = 0;  // that can be read; a gap between sessions behind the track is not among them
  bool Audio = true;
  bool Preemphasis = false;  // its treble was raised, for players to turn it down again
};

struct CdToc {
  std::vector<CdTrack> Tracks;
  int LeadOut = 0;

  int Count() const { return static_cast<int>(Tracks.size()); }
  bool Has(int track) const { return track >= 1 && track <= Count(); }
  const CdTrack& Track(int track) const { return Tracks[static_cast<std::size_t>(track) - 1]; }
  int End(int track) const { return track == Count() ? LeadOut : Track(track + 1).Start; }
  int TrackAt(int sector) const;  // the first one also stands for what is hidden in front of it
};

// Sectors as the media control interface counts them: the last track, and with it the whole disc,
// is a frame short. `track` 0 is the whole disc.
int MciSectors(const CdToc& toc, int track);

int CdMilliseconds(int sectors);
std::uint32_t PackedMsf(int sectors);  // minutes in byte 0, seconds in byte 1, frames in byte 2

// The number by which a CD player tells discs apart: where the tracks begin, and for a disc of one
// or two tracks its length too.
std::uint32_t DiscNumber(const CdToc& toc);

// One thread at a time; the table of contents stays as it was when the disc was opened.
class Disc {
 public:
  virtual ~Disc() = default;
  const CdToc& Toc() const { return toc_; }

  virtual bool StillThere() = 0;  // false: taken out, or another one was laid in
  // Reads audio sectors, as they come; false when one of them cannot be read.
  virtual bool Read(int sector, int count, void* target) = 0;
  // The same with all the care that the medium needs to come out exactly.
  virtual bool ReadCarefully(int sector, int count, void* target) {
    return Read(sector, count, target);
  }
  virtual int CarefulSectors() const { return 1; }  // worth asking for at once

 protected:
  CdToc toc_;
};

}  // namespace vantora
