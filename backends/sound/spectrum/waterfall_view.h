// Where things of the waterfall stand on its picture: the room in perspective, the scales along its
// three edges, and the size of the words around it.
#pragma once

#include "backends/sound/spectrum/spectrum.h"

#include <string>
#include <vector>

namespace vantora {

struct Place {
  double X, Y;  // twips
};

struct Tick {
  double At;  // 0 to 1 along its edge
  std::wstring Words;
};

class WaterfallView {
 public:
  WaterfallView(const Spectrum& spectrum, int width, int height);

  // A point of the room: across 0 (low frequencies) to 1, away 0 (front) to 1, up 0 to 1.
  Place At(double across, double away, double up) const;

  double Frequency(double across) const;  // Hz
  double Up(double level) const;          // of a level in dB; 0 to 1
  std::vector<Tick> FrequencyTicks() const;
  std::vector<Tick> TimeTicks() const;
  std::vector<Tick> LevelTicks() const;

  int FontSize() const { return fontSize_; }  // points
  double LineHeight() const { return 1.25 * Em(); }
  double Em() const { return fontSize_ * 20.0; }  // twips
  double FloorWidth() const { return right_ - left_; }
  double FloorDepth() const { return front_ - back_; }  // twips on the picture, upwards

 private:
  double left_, right_;        // of the front edge
  double front_, back_, eye_;  // heights of the floor's edges, and of the vanishing point
  double vanishing_;           // where the sides meet
  double wall_;                // height of the room at the front edge
  double top_;                 // dB
  double depth_;               // dB
  double durationMs_;          // from the first block to the last
  int fontSize_;
};

}  // namespace vantora
