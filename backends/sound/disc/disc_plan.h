// How waves come to lie on an audio disc, alike for every writer: where each track begins, and
// which part of which wave it holds.
//
// Written Track At Once, each wave is filled with silence to whole sectors of its own. Disc At Once
// is one stream: a track that ends within a sector leaves that sector to the next track, so that
// the joint of two waves is exact to the sample. Only the end of the disc is filled.
#pragma once

#include "platform/files.h"

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace vantora {

// A run of bytes in a file; silence when it names no file.
struct DiscPart {
  Text File;
  std::int64_t Offset = 0, Bytes = 0;
};

struct DiscRules {
  bool OneStream = false;
  std::int64_t Gap = 0;    // sectors in front of every track but the first; none in one stream
  std::int64_t Least = 1;  // sectors of a track; a shorter one is filled with silence to them
};

struct PlannedTrack {
  Text File;                                     // the wave that it is made of
  std::int64_t Gap = 0, Start = 0, Sectors = 0;  // in sectors; the gap ends where the track starts
  std::vector<DiscPart> Parts;                   // `Sectors` sectors together, without the gap
};

// The whole frames of a wave's sound. Raises 57 for what is no sound of 44.1 kHz, 16 bit, stereo.
DiscPart SoundForDisc(Dateien& files, const Text& wave);

std::vector<PlannedTrack> PlanDisc(const std::vector<DiscPart>& waves, const DiscRules& rules);

// Reads parts one after the other. A file is opened when its first byte is read, and closed behind
// its last one.
class PartReader {
 public:
  PartReader(Dateien& files, std::vector<DiscPart> parts)
      : files_(files), parts_(std::move(parts)) {}

  std::int64_t Left() const;  // bytes
  // Raises 62 for a file that has become too short, and what opening it raises.
  void Read(char* target, std::int64_t bytes);  // at most what is left

 private:
  Dateien& files_;
  std::vector<DiscPart> parts_;  // what has been read is taken off them
  std::size_t next_ = 0;
  std::unique_ptr<Datei> file_;
};

}  // namespace vantora
