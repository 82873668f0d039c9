// Titles and performers for a disc's sheet and CD-TEXT: Latin-1, where the typographic characters
// of Windows-1252 become plain ones. Players cannot show the typographic ones, and readers of
// sheets drop them.
#pragma once

#include "platform/text.h"

#include <string>

namespace vantora {

// Control characters become blanks: in CD-TEXT they are commands, and in a sheet they break lines.
// A character without a plain form becomes "?".
std::string DiscText(const Text& text);

}  // namespace vantora
