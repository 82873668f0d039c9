// A swept delay with feedback.
#pragma once

#include "platform/mmchain.h"

namespace vantora {

class Flanger final : public MMFlangerX {
 public:
  void Enable() override {}
  void Disable() override {}
  void SetDryMix(int /*percent*/) override {}
  void SetWetMix(int /*percent*/) override {}
  void SetFeedBack(int /*percent*/) override {}
  void SetDepth(float /*percent*/) override {}
  void SetRate(float /*hertz*/) override {}
};

}  // namespace vantora
