// A room out of eight echoes.
#pragma once

#include "platform/mmchain.h"
#include "platform/profile.h"

namespace vantora {

class Reverb final : public MMReverbX {
 public:
  explicit Reverb(Profile& profiles) : profiles_(profiles) {}
  void Enable() override {}
  void Disable() override {}
  void SetFeedback(int /*percent*/) override {}
  void SetOutputGain(int /*percent*/) override {}
  void LoadFromIni(const Text& /*iniFile*/, const Text& /*section*/) override {}

 private:
  [[maybe_unused]] Profile& profiles_;
};

}  // namespace vantora
