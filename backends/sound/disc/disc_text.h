// Titles and performers as they may stand on a disc, in its sheet and in its CD-TEXT alike:
// Latin-1, with plain letters in place of the typographic ones that the catalog's Windows-1252 has
// beyond it. Players cannot show the typographic letters, and readers of sheets drop them.
#pragma once

#include "platform/text.h"

#include <string>

namespace vantora {

// Control characters become blanks: in CD-TEXT they are commands, and they break a sheet's lines. A
// letter that has no plain one becomes "?".
std::string DiscText(const Text& text);

}  // namespace vantora
