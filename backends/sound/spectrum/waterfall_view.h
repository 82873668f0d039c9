// Positions of the waterfall's parts on its picture: the room in perspective, the scales along its
// three edges, and the font size.
#pragma once

#include "backends/sound/spectrum/spectrum.h"

#include <string>
#include <vector>

namespace vantora {

struct Place {
  double X, Y;  // in twips
};

struct Tick {
  double At;  // position from 0 to 1 along the edge
  std::wstring Words;
};

class WaterfallView {
 public:
  WaterfallView(const Spectrum& spectrum, int width, int height);

  // A point of the room: `across` from 0 (low frequencies) to 1, `away` from 0 (front) to 1, `up`
  // from 0 to 1.
  Place At(double across, double away, double up) const;

  double Frequency(double across) const;  // in Hz
  double Up(double level) const;          // height from 0 to 1 for a level in dB
  std::vector<Tick> FrequencyTicks() const;
  std::vector<Tick> TimeTicks() const;
  std::vector<Tick> LevelTicks() const;

  int FontSize() const { return fontSize_; }  // in points
  double LineHeight() const { return 1.25 * Em(); }
  double Em() const { return fontSize_ * 20.0; }  // in twips
  double FloorWidth() const { return right_ - left_; }
  double FloorDepth() const { return front_ - back_; }  // twips on the picture

 private:
  double left_, right_;        // of the front edge
  double front_, back_, eye_;  // vertical positions of the floor's edges and of the vanishing point
  double vanishing_;           // horizontal position of the vanishing point
  double wall_;                // height of the room at the front edge
  double top_;                 // in dB
  double depth_;               // in dB
  double durationMs_;          // from the first block to the last
  int fontSize_;
};

}  // namespace vantora
