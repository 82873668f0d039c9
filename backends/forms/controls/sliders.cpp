// Converts the values of a slider to places on the slider, and places to values.

#include "platform/fader_knob.h"
#include "platform/slider_scale.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace vantora {

SliderScale SliderScale::Of(const Slider& slider) {
  return {slider.Min, slider.Max, slider.Logarithmic};
}

double SliderScale::ShareOf(int value) const {
  if (Max == Min) return 0;
  if (Logarithmic) return value <= 1 ? 0 : std::log(value) / std::log(Max);
  return (static_cast<double>(value) - Min) / (static_cast<double>(Max) - Min);
}

int SliderScale::ValueAt(double share) const {
  if (share <= 0) return Min;
  if (share >= 1) return Max;
  if (Logarithmic) return static_cast<int>(std::lround(std::pow(Max, share)));
  return Min + static_cast<int>(std::lround(share * (static_cast<double>(Max) - Min)));
}

int SliderScale::Stepped(int value, bool more, bool page) const {
  const auto [low, high] = std::minmax(Min, Max);
  int step = page ? std::max((high - low) / 10, 1) : 1;
  if (Logarithmic) {
    const double share = ShareOf(value) + (more ? 1 : -1) * (page ? 0.1 : 0.01);
    step = std::max(std::abs(ValueAt(share) - value), 1);
  }
  return std::clamp(more ? value + step : value - step, low, high);
}

// ---- the knob of a fader ----

FaderKnob::FaderKnob(Form& form, Text name, int index) : Slider(form, std::move(name), index) {
  Vertical = true;
  Upwards = true;
}

int KnobTravel::Span() const {
  return std::max(Track - Knob, 0);
}

int KnobTravel::TopOf(int value) const {
  if (Max <= Min) return Span();
  const double share = static_cast<double>(Max - value) / (Max - Min);
  return std::clamp(static_cast<int>(std::lrint(share * Span())), 0, Span());
}

int KnobTravel::ValueAt(int top) const {
  if (Span() == 0) return Max;
  const double there = std::clamp(top, 0, Span());
  return static_cast<int>(std::lrint(Max - std::abs(there * (Max - Min) / Span())));
}

bool KnobTravel::On(int value, int y) const {
  return y >= TopOf(value) && y < TopOf(value) + Knob;
}

int KnobTravel::GripOf(int value, int y) const {
  return On(value, y) ? y - TopOf(value) : Knob / 2;
}

}  // namespace vantora
