// Bands of a graphic equalizer.
#pragma once

#include "platform/mmchain.h"

#include <vector>

namespace vantora {

class Equalizer final : public MMEqualizerX {
 public:
  void Enable() override {}
  void Disable() override {}
  void Add(double frequencyFrom, double frequencyTo, double gain) override;
  int Count() const override { return static_cast<int>(bands_.size()); }
  Filter& Item(int index) override;

 private:
  class Band final : public Filter {
   public:
    double Gain() const override { return gain_; }
    void SetGain(double gain) override { gain_ = gain; }

   private:
    double gain_ = 0;
  };
  std::vector<Band> bands_;
};

}  // namespace vantora
