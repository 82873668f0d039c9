// Brings sound to the format of the chain.
#pragma once

#include "platform/mmchain.h"

namespace vantora {

class PcmConverter final : public MMPCMConverterX {
 public:
};

}  // namespace vantora
