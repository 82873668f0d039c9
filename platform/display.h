// The screen and the pointers that belong to the whole desktop.
#pragma once

#include "platform/text.h"

namespace vantora {

class Display {
 public:
  virtual ~Display() = default;
  virtual int Width() = 0;              // twips
  virtual int Height() = 0;             // twips
  virtual double TwipsPerPixelX() = 0;  // 15, or 12 with large fonts
  virtual double TwipsPerPixelY() = 0;
  // Pixels of the screen that one of a window takes: 2 on a display at 200 percent.
  virtual double Scale() { return 1; }
  virtual int BitsPerPixel() = 0;
  // Replaces the busy pointer by the one of a file, until the next call; blank restores it.
  virtual void SetSystemCursor(const Text& file) = 0;
};

}  // namespace vantora
