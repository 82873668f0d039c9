// An audio disc as its readers see it, be it in a drive or an image in a folder.
//
// Positions are logical sectors. Sector 0 is two seconds into the disc; the first track begins
// there unless sound is hidden in front of it. A sector holds 588 frames of 44.1 kHz, 16 bit,
// stereo, little-endian. Track numbers count from 1.
#pragma once

#include "platform/cd_sound.h"

#include <cstdint>
#include <vector>

namespace vantora {

constexpr int kCdSubchannelBytes = 96;  // some images have them after each sector
constexpr int kCdLeadInSectors = 150;   // from the disc's own zero to sector 0

struct CdTrack {
  int Start = 0;
  int Sectors = 0;  // readable ones; excludes a gap between sessions after the track
  bool Audio = true;
  bool Preemphasis = false;  // treble was raised for players to lower
};

struct CdToc {
  std::vector<CdTrack> Tracks;
  int LeadOut = 0;

  int Count() const { return static_cast<int>(Tracks.size()); }
  bool Has(int track) const { return track >= 1 && track <= Count(); }
  const CdTrack& Track(int track) const { return Tracks[static_cast<std::size_t>(track) - 1]; }
  int End(int track) const { return track == Count() ? LeadOut : Track(track + 1).Start; }
  int TrackAt(int sector) const;  // the first track includes the sound hidden in front of it
};

// Length in sectors as the media control interface counts: the last track, and with it the whole
// disc, is one frame shorter. `track` 0 stands for the whole disc.
int MciSectors(const CdToc& toc, int track);

int CdMilliseconds(int sectors);
std::uint32_t PackedMsf(int sectors);  // minutes in byte 0, seconds in byte 1, frames in byte 2

// The number by which a CD player identifies a disc. It is computed from the starts of the tracks
// and, for a disc of one or two tracks, from its length.
std::uint32_t DiscNumber(const CdToc& toc);

// Only one thread may use a disc at a time. The table of contents stays as it was when the disc was
// opened.
class Disc {
 public:
  virtual ~Disc() = default;
  const CdToc& Toc() const { return toc_; }

  virtual bool StillThere() = 0;  // false: the disc was taken out or exchanged
  // Reads audio sectors without correction. Returns false when one of them cannot be read.
  virtual bool Read(int sector, int count, void* target) = 0;
  // Reads audio sectors with all the effort that the medium needs for an exact result.
  virtual bool ReadCarefully(int sector, int count, void* target) {
    return Read(sector, count, target);
  }
  virtual int CarefulSectors() const { return 1; }  // number that is efficient to read in one call

 protected:
  CdToc toc_;
};

}  // namespace vantora
