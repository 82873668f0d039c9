// A level meter that shows a peak at once and lets it sink in steps, so that the eye can follow.
#pragma once

#include "klang/pegel.h"

#include "platform/controls.h"

#include <algorithm>

namespace vantora {

class MMLevelX final : public LevelMeter {
 public:
  enum DecayModes { dmStepUp };  // up at once, down in steps

  MMLevelX(Form& fenster, const Text& name, Ears ohren)
      : LevelMeter(fenster, name), tmrFall_(fenster, L"tmr" + name) {
    Shown = ohren;
    tmrFall_.Interval = kSchrittMs;
    tmrFall_.Enabled = false;
    tmrFall_.OnTimer = [this] { Fallen(); };
  }

  int PeakSpeed = 1;  // steps at a time
  DecayModes DecayMode = dmStepUp;
  int Decay = 9;  // percent of its height that a peak loses in a step

  // Shows the peaks that are heard now, 0 to 32767. A higher peak that is still shown goes on
  // sinking.
  void Zeigen(int links, int rechts) {
    PeakLeft = std::max<int>(PeakLeft, links);
    PeakRight = std::max<int>(PeakRight, rechts);
    if (PeakLeft == 0 && PeakRight == 0) return;
    Active = true;
    tmrFall_.Enabled = true;
  }

 private:
  static constexpr int kSchrittMs = 50;

  void Fallen() {
    PeakLeft = PegelNach(PeakLeft, PeakSpeed, Decay);
    PeakRight = PegelNach(PeakRight, PeakSpeed, Decay);
    if (PeakLeft > 0 || PeakRight > 0) return;
    Active = false;
    tmrFall_.Enabled = false;
  }

  Timer tmrFall_;
};

}  // namespace vantora
