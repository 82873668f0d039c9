// CD-TEXT of a disc: titles and performers in Latin-1.
#pragma once

#include "backends/burn/burn_library.h"
#include "backends/burn/burn_order.h"

#include <vector>

namespace vantora {

// Hangs the texts on the session and its tracks. All texts together get about 3000 bytes: when they
// are more the long ones are cut. False when there was nothing to hang on.
bool AttachCdText(burn_session* session, const std::vector<burn_track*>& tracks,
                  const CdTexts& texts);

}  // namespace vantora
