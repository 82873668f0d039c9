// Makes sound louder or softer.
#pragma once

#include "platform/mmchain.h"

namespace vantora {

class Volume final : public MMVolumeX {
 public:
  void Enable() override {}
  void Disable() override {}
  void SetVolume(int /*volume*/) override {}
};

}  // namespace vantora
