// Formats the sheet beside an image, in the CUE format: it says where each track lies in the image.
#pragma once

#include "platform/text.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vantora {

struct CueTrack {
  std::optional<std::int64_t> gap;  // first sector of its gap (INDEX 00)
  std::int64_t start = 0;           // first sector of its sound (INDEX 01)
  Text title, performer;            // blank: left out of the sheet
};

struct CueSheet {
  Text image;  // name of the image file beside the sheet
  Text title, performer;
  std::vector<CueTrack> tracks;
};

// Texts are converted as for a disc (see DiscText). Double quotes become single ones, since CUE has
// no escape for them. Lines end in CR LF.
std::string FormatCueSheet(const CueSheet& sheet);

// "01:02:74": minutes, seconds and sectors.
std::string FormatCueTime(std::int64_t sectors);

}  // namespace vantora
