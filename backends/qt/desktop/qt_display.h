// The screen of the windows, with 15 twips per pixel.
#pragma once

#include "platform/display.h"
#include "platform/twips.h"

namespace vantora {

class QtDisplay final : public Display {
 public:
  QtDisplay() = default;
  // A screen of a given size in pixels, whatever the real screen is, so that stories do not depend
  // on it.
  QtDisplay(int pixelWidth, int pixelHeight, int bitsPerPixel = 24)
      : pixelWidth_(pixelWidth), pixelHeight_(pixelHeight), bits_(bitsPerPixel) {}

  int Width() override;
  int Height() override;
  double Scale() override;
  double TwipsPerPixelX() override { return kTwipsPerPixel; }
  double TwipsPerPixelY() override { return kTwipsPerPixel; }
  int BitsPerPixel() override;
  // The busy pointer comes from the user's desktop theme and stays; this call only stores the name.
  void SetSystemCursor(const Text& file) override { systemCursor_ = file; }

 private:
  int pixelWidth_ = 0, pixelHeight_ = 0, bits_ = 0;  // 0: use the real screen's
  Text systemCursor_;
};

}  // namespace vantora
