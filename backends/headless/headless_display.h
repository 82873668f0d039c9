// A screen that shows nothing. Its size can be set.
#pragma once

#include "platform/display.h"
#include "platform/twips.h"

namespace vantora {

class HeadlessDisplay final : public Display {
 public:
  int PixelWidth = 1024, PixelHeight = 768;
  double TwipsPerPixel = kTwipsPerPixel;  // 12 with large fonts
  int Bits = 24;
  Text SystemCursor;  // file of the busy pointer; blank for the standard one

  int Width() override { return static_cast<int>(PixelWidth * TwipsPerPixel); }
  int Height() override { return static_cast<int>(PixelHeight * TwipsPerPixel); }
  double TwipsPerPixelX() override { return TwipsPerPixel; }
  double TwipsPerPixelY() override { return TwipsPerPixel; }
  int BitsPerPixel() override { return Bits; }
  void SetSystemCursor(const Text& file) override { SystemCursor = file; }
};

}  // namespace vantora
