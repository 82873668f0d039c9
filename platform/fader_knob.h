// A mixer fader: a vertical slider that is moved by its knob and has its maximum at the top. A
// press beside the knob moves the middle of the knob there. MouseDown and MouseUp are raised also
// for presses that move nothing.
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

// Converts between values and positions of the knob, in pixels from the top of the track. Positions
// are computed from the mouse and not from the drawn knob, so that a knob that is drawn late does
// not matter.
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
  // GripOf returns the distance from the knob's upper edge to the mouse at a press. A press on the
  // knob does not move it.
  bool On(int value, int y) const { return y >= TopOf(value) && y < TopOf(value) + Knob; }
  int GripOf(int value, int y) const { return On(value, y) ? y - TopOf(value) : Knob / 2; }

 private:
  int Span() const { return std::max(Track - Knob, 0); }
};

}  // namespace vantora
