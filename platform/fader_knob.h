// The knob of a fader: an upright slider that is gripped at its knob and whose greatest value is at
// the top. A press beside the knob brings its middle there. Who is to know of presses and releases
// that move nothing hangs on MouseDown and MouseUp.
#pragma once

#include "platform/controls.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace vantora {

class FaderKnob final : public Slider {
 public:
  static constexpr int kKnobHeight = 330;  // twips

  explicit FaderKnob(Form& form, Text name, int index = -1) : Slider(form, std::move(name), index) {
    Vertical = true;
    Upwards = true;
  }
};

// Where the knob stands for a value and back, in pixels from the top of the track. All is counted
// from where the mouse is, so a knob that is slow to follow is never behind what it stands for.
struct KnobTravel {
  int Track, Knob, Max, Min = 0;

  int TopOf(int value) const {
    if (Max <= Min) return Span();
    const double share = static_cast<double>(Max - value) / (Max - Min);
    return std::clamp(static_cast<int>(std::lrint(share * Span())), 0, Span());
  }
  int ValueAt(int top) const {
    if (Span() == 0) return Max;
    const double there = std::clamp(top, 0, Span());
    return static_cast<int>(std::lrint(Max - std::abs(there * (Max - Min) / Span())));
  }
  // How far below the knob's upper edge a press grips it; nothing moves as long as it is on it.
  bool On(int value, int y) const { return y >= TopOf(value) && y < TopOf(value) + Knob; }
  int GripOf(int value, int y) const { return On(value, y) ? y - TopOf(value) : Knob / 2; }

 private:
  int Span() const { return std::max(Track - Knob, 0); }
};

}  // namespace vantora
