// The sheet beside an image: what lies where in it, in the notation that disc tools agree on.
#pragma once

#include "platform/text.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vantora {

struct CueTrack {
  std::optional<std::int64_t> gap;  // sector where its gap begins (INDEX 00)
  std::int64_t start = 0;           // sector of its first sound (INDEX 01)
  Text title, performer;            // blank: not in the sheet
};

struct CueSheet {
  Text image;  // name of the file beside the sheet
  Text title, performer;
  std::vector<CueTrack> tracks;
};

// Text is that of a disc (see DiscText); double quotes, which the notation cannot hold, become
// single ones. Lines end in CR LF.
std::string FormatCueSheet(const CueSheet& sheet);

// "01:02:74": minutes, seconds and sectors.
std::string FormatCueTime(std::int64_t sectors);

}  // namespace vantora
