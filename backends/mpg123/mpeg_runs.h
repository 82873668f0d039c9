// Finds MPEG audio in a file that may contain tags, pictures and damage before, after and between
// the frames.
#pragma once

#include "platform/files.h"

#include <cstdint>
#include <vector>

namespace vantora {

// Consecutive frames of one kind without a gap.
struct MpegRun {
  std::int64_t Start = 0, Bytes = 0;  // in the file
  bool Beginning = true;              // starts a stream; else the frames before are lost
  bool Whole = true;                  // complete; else the frames after it are lost
  // Offsets in the run of frames with an intact header and damaged content, ascending.
  std::vector<std::int64_t> Damaged;
};

// Returns no run for a file of another kind. A frame begins with only eleven set bits, which any
// picture, text or wave file may contain. A run therefore begins only where several frames follow
// each other, and the first run within 1 MiB after the tags at the start. A frame that is followed
// by neither a frame nor a tag is damaged, unless it is the last one by the stream's own frame
// count.
//
// False frames that match in every field, and begin and end where true ones could, are accepted.
// Those that are found damaged are silenced, or cut off at the broken end of a run.
std::vector<MpegRun> FindMpegRuns(Datei& file);

}  // namespace vantora
