// Places waves on an audio disc, the same way for every writer: where each track begins, and which
// part of which wave it contains.
//
// At Track At Once, each wave is filled with silence to a whole number of sectors. At Disc At Once,
// the sound is one stream: a sector in which a track ends belongs to the next track, so that the
// joint of two waves is exact to the sample. Only the end of the disc is filled.
#pragma once

#include "platform/files.h"

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace vantora {

// A range of bytes in a file. It stands for silence when `File` is blank.
struct DiscPart {
  Text File;
  std::int64_t Offset = 0, Bytes = 0;
};

struct DiscRules {
  bool OneStream = false;
  std::int64_t Gap = 0;    // sectors in front of every track but the first; 0 in one stream
  std::int64_t Least = 1;  // minimum sectors of a track; a shorter one is filled with silence
};

struct PlannedTrack {
  Text File;                                     // the track's wave
  std::int64_t Gap = 0, Start = 0, Sectors = 0;  // in sectors; the gap ends at Start
  std::vector<DiscPart> Parts;                   // `Sectors` sectors in all, without the gap
};

// The whole frames of a wave's sound. Raises 57 for a file that is not a wave of 44.1 kHz, 16 bit,
// stereo.
DiscPart SoundForDisc(Dateien& files, const Text& wave);

std::vector<PlannedTrack> PlanDisc(const std::vector<DiscPart>& waves, const DiscRules& rules);

// Reads parts one after the other. A file is opened at its first byte and closed after its last.
class PartReader {
 public:
  PartReader(Dateien& files, std::vector<DiscPart> parts)
      : files_(files), parts_(std::move(parts)) {}

  std::int64_t Left() const;      // in bytes
  void Skip(std::int64_t bytes);  // at most Left(), and only before the first Read
  // Raises 62 for a file that has become too short, and the errors of opening a file.
  void Read(char* target, std::int64_t bytes);  // at most Left()

 private:
  Dateien& files_;
  std::vector<DiscPart> parts_;  // without the bytes already read
  std::size_t next_ = 0;
  std::unique_ptr<Datei> file_;
};

}  // namespace vantora
