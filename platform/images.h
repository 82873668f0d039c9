// Pictures of the user: photographs and scans in jpg, bmp and gif, for the screen and for printing.
// A picture is rotated upright as its camera recorded. Of an animation only the first frame is
// used.
#pragma once

#include "platform/text.h"

#include <memory>

namespace vantora {

// A loaded picture. It does not change, and no longer needs its file.
class Image {
 public:
  virtual ~Image() = default;
  virtual int Width() const = 0;   // in pixels, at least 1
  virtual int Height() const = 0;  // in pixels, at least 1
};

// A shared picture; null for none.
using Bild = std::shared_ptr<const Image>;

// Pictures with more pixels are refused, since they would not fit into the memory of a small
// machine.
constexpr long long kMaxImagePoints = 200'000'000;
// The limit for bmp and gif, which cannot be decoded at a smaller size.
constexpr long long kMaxWholePoints = 60'000'000;

class Images {
 public:
  virtual ~Images() = default;
  // Loads a file and never returns null. Raises the errors of Dateien for a file that cannot be
  // read, 481 for a file that is not a picture or is damaged, and 7 for one with too many pixels.
  virtual Bild Load(const Text& file) = 0;
};

}  // namespace vantora
