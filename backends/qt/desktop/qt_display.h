// The screen that the windows stand on, 15 twips to one of its own pixels.
#pragma once

#include "platform/display.h"
#include "platform/twips.h"

namespace vantora {

class QtDisplay final : public Display {
 public:
  QtDisplay() = default;
  // A screen of a given size in pixels, whatever the real one is: stories do not depend on it.
  QtDisplay(int pixelWidth, int pixelHeight, int bitsPerPixel = 24)
      : pixelWidth_(pixelWidth), pixelHeight_(pixelHeight), bits_(bitsPerPixel) {}

  int Width() override;
  int Height() override;
  double Scale() override;
  double TwipsPerPixelX() override { return kTwipsPerPixel; }
  double TwipsPerPixelY() override { return kTwipsPerPixel; }
  int BitsPerPixel() override;
  // The busy pointer belongs to the person's desktop theme and stays; the name is only kept.
  void SetSystemCursor(const Text& file) override { systemCursor_ = file; }

 private:
  int pixelWidth_ = 0, pixelHeight_ = 0, bits_ = 0;  // 0: ask the screen
  Text systemCursor_;
};

}  // namespace vantora
