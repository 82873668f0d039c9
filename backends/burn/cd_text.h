// The CD-TEXT of a disc: titles and performers in Latin-1, where typographic characters become
// plain ones.
#pragma once

#include "backends/burn/burn_library.h"
#include "backends/burn/burn_order.h"

#include <vector>

namespace vantora {

// Attaches the texts to the session and its tracks. A text has at most 160 characters, which is the
// limit of players, and all texts together have about 3000 bytes. When they are longer, the long
// ones are shortened further. Returns false when there is no text.
bool AttachCdText(burn_session* session, const std::vector<burn_track*>& tracks,
                  const CdTexts& texts);

}  // namespace vantora
