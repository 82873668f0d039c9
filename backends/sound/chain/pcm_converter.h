// The place in a chain where sound gets the chain's format. Whatever a file's header says, its
// sound is counted and played as frames of 4 bytes, so it has that format already and passes
// untouched.
#pragma once

#include "platform/mmchain.h"

namespace vantora {

class PcmConverter final : public MMPCMConverterX {};

}  // namespace vantora
