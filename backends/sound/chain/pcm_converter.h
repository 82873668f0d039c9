// The position in a chain where sound would be converted to the chain's format. Whatever a file's
// header says, its sound is read as frames of 4 bytes, so it already has that format and passes
// unchanged.
#pragma once

#include "platform/mmchain.h"

namespace vantora {

class PcmConverter final : public MMPCMConverterX {};

}  // namespace vantora
