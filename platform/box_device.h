// A picture box as a device for text: printed text is added to its drawing.
#pragma once

#include "platform/device_text.h"
#include "platform/twips.h"

namespace vantora {

class BoxDevice final : public Device {
 public:
  // `twipsPerPixel` is that of the screen. The box and the fonts must live longer than the device.
  BoxDevice(PictureBox& box, FontBook& fonts, double twipsPerPixel = kTwipsPerPixel)
      : box_(box), fonts_(fonts), twips_(twipsPerPixel) {}

  double TwipsPerPixelX() const override { return twips_; }
  double TwipsPerPixelY() const override { return twips_; }
  DeviceContext& hDC() override { return context_; }
  void Print(const Text& text) override {
    Write(CurrentX, CurrentY, text, ForeColor);
    CurrentX = 0;
    CurrentY += TextHeight(text);
  }
  double TextWidth(const Text& text) override {
    return fonts_.Measure(FontInUse(*this), text).Width * twips_;
  }
  double TextHeight(const Text& text) override {
    return fonts_.Measure(FontInUse(*this), text).Height * twips_;
  }

 private:
  class Context final : public DeviceContext {
   public:
    explicit Context(BoxDevice& device) : device_(device) {}
    void TextOut(double x, double y, const Text& text) override {
      device_.Write(x * device_.twips_, y * device_.twips_, text, TextColor);
    }

   private:
    BoxDevice& device_;
  };

  void Write(double x, double y, const Text& text, Color color) {
    if (text.empty()) return;
    const LogicalFont font = FontInUse(*this);
    DrawItem item;
    item.Kind = DrawItem::What::Words;
    item.Points = {static_cast<int>(x), static_cast<int>(y)};
    item.Ink = color;
    item.Content = text;
    item.FontName = font.FaceName;
    // A positive height is that of the line. Letters take about this share of it.
    constexpr double kLettersOfLine = 0.87;
    const double pixels = font.Height < 0 ? -font.Height : font.Height * kLettersOfLine;
    item.FontTwips = pixels * twips_;
    item.Bold = font.Weight > (kWeightNormal + kWeightBold) / 2;
    item.Italic = font.Italic;
    item.Underline = font.Underline;
    item.StrikeOut = font.StrikeOut;
    item.Angle = font.Escapement;
    if (context_.BkMode == kBackgroundOpaque) item.Fill = context_.BkColor;
    box_.Draw(std::move(item));
  }

  PictureBox& box_;
  FontBook& fonts_;
  double twips_;
  Context context_{*this};
};

}  // namespace vantora
