// The knob of a fader: an upright slider that is gripped at its knob and whose greatest value is at
// the top. A press beside the knob brings its middle there. Presses and releases that move nothing
// are reported through MouseDown and MouseUp.
#pragma once

#include "platform/controls/slider.h"

namespace vantora {

class FaderKnob final : public Slider {
 public:
  static constexpr int kKnobHeight = 330;  // twips

  explicit FaderKnob(Form& form, Text name, int index = -1);
};

// Where the knob stands for a value and back, in pixels from the top of the track. All is counted
// from where the mouse is, so a knob that is slow to follow is never behind what it stands for.
struct KnobTravel {
  int Track, Knob, Max, Min = 0;

  int TopOf(int value) const;
  int ValueAt(int top) const;
  bool On(int value, int y) const;  // a press there grips the knob, and nothing moves
  // How far below the knob's upper edge a press grips it; beside the knob, at its middle.
  int GripOf(int value, int y) const;

 private:
  int Span() const;
};

}  // namespace vantora
