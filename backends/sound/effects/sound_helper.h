// Converts levels to dB, and reads sections of ini files.
#pragma once

#include "platform/mmchain.h"
#include "platform/profile.h"

namespace vantora {

class SoundHelper final : public MMHelperX {
 public:
  explicit SoundHelper(Profile& profiles) : profiles_(profiles) {}
  double Db(double value, double fullScale) override;
  Text IniSection(int index, const Text& iniFile) override;

 private:
  Profile& profiles_;
};

}  // namespace vantora
