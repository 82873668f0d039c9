// The one form in which the wave editor shows places and lengths.
#pragma once

#include "platform/text.h"

namespace vantora {

// "0:00.0" for no frames, else minutes, seconds and tenths: "m:ss:t".
Text SmpToTime(double frames);

}  // namespace vantora
