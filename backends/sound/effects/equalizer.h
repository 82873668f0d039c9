// A graphic equalizer. Each band has a lower and an upper frequency and a gain in dB, which holds
// exactly in its middle (the geometric mean of its edges; half its upper edge when it begins at 0
// Hz).
#pragma once

#include "backends/sound/effects/band_curve.h"
#include "backends/sound/effects/switched_effect.h"

#include <array>
#include <deque>
#include <vector>

namespace vantora {

class Equalizer final : public SwitchedEffect<MMEqualizerX> {
 public:
  void Add(double frequencyFrom, double frequencyTo, double gain) override;
  int Count() const override { return static_cast<int>(bands_.size()); }
  Filter& Item(int index) override;

 private:
  class Band final : public Filter {
   public:
    Band(Equalizer& owner, BandEdges edges) : Edges(edges), owner_(owner) {}
    double Gain() const override { return gain_; }
    void SetGain(double gain) override;

    const BandEdges Edges;

   private:
    Equalizer& owner_;
    double gain_ = 0;
  };
  using Frame = double __attribute__((vector_size(16)));  // left and right
  struct Section {
    FilterCoefficients Now, Step;  // Step: change per frame
    Frame S{}, T{};
  };

  void Clear() override;
  void Settle() override;
  void Process(float* samples, std::size_t frames) override;
  void Solve();
  void Hush();
  void Glide(std::size_t frames);
  template <std::size_t kSections, bool kGliding>
  static void Run(Section* sections, Frame* frames, std::size_t count);
  template <bool kGliding>
  void RunAll(Frame* frames, std::size_t count);

  std::deque<Band> bands_;
  bool changed_ = true;  // bands or gains have changed since the last solution
  BandCurve curve_;
  std::vector<double> turned_, target_;  // current and target gains of the filters in dB
  int left_ = 0;                         // frames until the target is reached
  std::vector<Section> sections_;
  std::array<Frame, kBufferFrames> work_{};
};

}  // namespace vantora
