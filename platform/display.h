// The screen, and the mouse pointers of the whole desktop.
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
  // The number of screen pixels for one pixel of a window: 2 on a display at 200 percent.
  virtual double Scale() { return 1; }
  virtual int BitsPerPixel() = 0;
  // Replaces the desktop's busy pointer by the one in `file` until the next call; a blank `file`
  // restores it. Has no effect on a desktop whose theme sets the pointers.
  virtual void SetSystemCursor(const Text& file) = 0;
};

}  // namespace vantora
