// CD-TEXT of a disc: titles and performers in Latin-1, with plain signs for typographic ones.
#pragma once

#include "backends/burn/burn_library.h"
#include "backends/burn/burn_order.h"

#include <vector>

namespace vantora {

// Hangs the texts on the session and its tracks. A text has 160 characters at most, which is what
// players count on, and all texts together about 3000 bytes: when they are more the long ones are
// cut further. False when there was nothing to hang on.
bool AttachCdText(burn_session* session, const std::vector<burn_track*>& tracks,
                  const CdTexts& texts);

}  // namespace vantora
