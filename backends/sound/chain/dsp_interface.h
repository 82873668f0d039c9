// Passes each buffer to a callback and on.
#pragma once

#include "platform/mmchain.h"

namespace vantora {

class DspInterface final : public MMDSPInterfaceX {
 public:
  void Pull(MMData& data) override {
    MMDSPInterfaceX::Pull(data);
    if (OnBufferFilled && data.Bytes > 0) OnBufferFilled(data);
  }
};

}  // namespace vantora
