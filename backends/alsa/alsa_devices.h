// The sound card's outputs, in the order in which the system offers them.
#pragma once

#include "platform/text.h"

#include <vector>

namespace vantora {

// Keeps libasound from writing its complaints to the terminal. A machine without a card is normal.
void SilenceAlsaMessages();

// Converts a name that libasound returns, in UTF-8.
Text AlsaName(const char* name);

// Names of the outputs that can play. Empty on a machine with neither a sound card nor a sound
// server.
std::vector<Text> AlsaPlaybackDevices();

}  // namespace vantora
