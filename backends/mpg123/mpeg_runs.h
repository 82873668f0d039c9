// Where MPEG audio lies in a file: in front of it, behind it and between it there may be tags,
// pictures and damage.
#pragma once

#include "platform/files.h"

#include <cstdint>
#include <vector>

namespace vantora {

// Frames of one kind that follow each other without a gap.
struct MpegRun {
  std::int64_t Start = 0, Bytes = 0;  // in the file
  bool Beginning = true;              // of a stream; what lay in front of others is lost
  bool Whole = true;                  // to its end; what lay behind others is lost
  // Places in the run of frames whose header is sound and whose content is not, in rising order.
  std::vector<std::int64_t> Damaged;
};

// None for a file that is something else. Eleven bits make a frame's mark, which any picture, text
// or wave file holds somewhere; so a run begins only where several frames follow each other, the
// first within 1 MiB behind the tags in front. A frame with something else than a frame or a tag
// behind it is damaged, unless the stream's own count of its frames ends with it.
//
// False frames that fit in everything, and begin and end where true ones could, are taken for
// frames: if they are found damaged, they are silent, and at a run's broken end they are left out.
std::vector<MpegRun> FindMpegRuns(Datei& file);

}  // namespace vantora
