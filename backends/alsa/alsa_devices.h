// The sound card's outputs, in the order in which the system offers them.
#pragma once

#include "platform/text.h"

#include <vector>

namespace vantora {

// Keeps libasound from writing its complaints to the terminal. A machine without a card is normal.
void SilenceAlsaMessages();

// A name of the library's, which is UTF-8.
Text AlsaName(const char* name);

// Names of the outputs that can play; empty on a machine without a sound card or a sound server.
std::vector<Text> AlsaPlaybackDevices();

}  // namespace vantora
