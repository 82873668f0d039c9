// A mixer fader: a vertical slider that is moved by its knob and has its maximum at the top. A
// press beside the knob moves the middle of the knob there. MouseDown and MouseUp are raised also
// for presses that move nothing.
#pragma once

#include "platform/controls/slider.h"

namespace vantora {

class FaderKnob final : public Slider {
 public:
  static constexpr int kKnobHeight = 330;  // twips

  explicit FaderKnob(Form& form, Text name, int index = -1);
};

// Converts between values and positions of the knob, in pixels from the top of the track. Positions
// are computed from the mouse and not from the drawn knob, so that a knob that is drawn late does
// not matter.
struct KnobTravel {
  int Track, Knob, Max, Min = 0;

  int TopOf(int value) const;
  int ValueAt(int top) const;
  bool On(int value, int y) const;  // a press on the knob does not move it
  // How far below the knob's upper edge a press grips it; beside the knob, at its middle.
  int GripOf(int value, int y) const;

 private:
  int Span() const;
};

}  // namespace vantora
