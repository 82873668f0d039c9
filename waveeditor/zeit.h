// Formats places and lengths as the wave editor shows them.
#pragma once

#include "platform/text.h"

namespace vantora {

// "0:00.0" for no frames, else minutes, seconds and tenths: "m:ss:t".
Text SmpToTime(double frames);

}  // namespace vantora
