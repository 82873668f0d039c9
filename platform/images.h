// Pictures that the user brings: photographs and scans in jpg, bmp and gif, for the screen and for
// paper alike. A picture stands upright, whatever way the camera was held; of an animated one the
// first frame counts.
#pragma once

#include "platform/text.h"

#include <memory>

namespace vantora {

// A picture that was loaded. It does not change, and needs its file no more.
class Image {
 public:
  virtual ~Image() = default;
  virtual int Width() const = 0;   // points of the picture, at least 1
  virtual int Height() const = 0;  // the same
};

// A picture as it is handed about; no picture is nothing.
using Bild = std::shared_ptr<const Image>;

// Pictures of more points are refused: they would not fit into the memory of a small machine.
constexpr long long kMaxImagePoints = 200'000'000;
// The same of bmp and gif, which cannot be read at a smaller size.
constexpr long long kMaxWholePoints = 60'000'000;

class Images {
 public:
  virtual ~Images() = default;
  // Reads a file, never nothing. Raises the errors of Dateien where it cannot be read, 481 for a
  // file that is no picture or a broken one, and 7 for one with too many points.
  virtual Bild Load(const Text& file) = 0;
};

}  // namespace vantora
