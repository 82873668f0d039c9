// Text on a device, which is a sheet of paper or a picture box, in fonts that can be rotated.
// Positions and sizes on a device are in twips (1/1440 inch) from its upper left corner; those of
// its context are in pixels of the device.
#pragma once

#include "platform/controls.h"
#include "platform/text.h"

#include <memory>
#include <utility>
#include <vector>

namespace vantora {

constexpr int kWeightNormal = 400, kWeightBold = 700;

struct LogicalFont {
  Text FaceName;        // only the first 32 characters count
  double Height = 0;    // pixels of the device; negative: of the letters, positive: of the line
  int Escapement = 0;   // tenths of a degree, counterclockwise: 900 runs upwards
  int Orientation = 0;  // same as Escapement
  int Weight = kWeightNormal;
  bool Italic = false, Underline = false, StrikeOut = false;

  bool operator==(const LogicalFont&) const = default;
};

using FontHandle = std::shared_ptr<const LogicalFont>;

inline FontHandle CreateFontIndirectA(const LogicalFont& font) {
  LogicalFont made = font;
  constexpr std::size_t kFaceName = 32;
  if (made.FaceName.size() > kFaceName) made.FaceName.resize(kFaceName);
  return std::make_shared<const LogicalFont>(std::move(made));
}

enum BackgroundMode : int { kBackgroundTransparent = 1, kBackgroundOpaque = 2 };

// The settings with which TextOut writes on a device.
class DeviceContext {
 public:
  virtual ~DeviceContext() = default;

  FontHandle Font;  // null: the device's own, from its FontName and the other Font members
  Color TextColor = 0;
  Color BkColor = Rgb(255, 255, 255);
  int BkMode = kBackgroundTransparent;

  // Writes in TextColor. (x, y) is the upper left corner of the first letter's cell; the text is
  // rotated around it.
  virtual void TextOut(double x, double y, const Text& text) = 0;  // x and y in pixels
};

// Selects a font and returns the one selected before.
inline FontHandle SelectObject(DeviceContext& context, FontHandle font) {
  return std::exchange(context.Font, std::move(font));
}
inline void DeleteObject(FontHandle& font) {
  font.reset();
}
inline void SetTextColor(DeviceContext& context, Color color) {
  context.TextColor = color;
}
inline void SetBkColor(DeviceContext& context, Color color) {
  context.BkColor = color;
}
inline void SetBkMode(DeviceContext& context, int mode) {
  context.BkMode = mode;
}
inline void TextOut(DeviceContext& context, double x, double y, const Text& text) {
  context.TextOut(x, y, text);
}

// A device that text can be written on.
class Device {
 public:
  virtual ~Device() = default;

  double CurrentX = 0, CurrentY = 0;  // position of the next Print, in twips
  Text FontName = L"Arial";
  double FontSize = 10;  // in points
  bool FontBold = false, FontItalic = false, FontUnderline = false, FontStrikethru = false;
  Color ForeColor = 0;

  virtual double TwipsPerPixelX() const = 0;
  virtual double TwipsPerPixelY() const = 0;
  virtual DeviceContext& hDC() = 0;
  // Writes at (CurrentX, CurrentY) in ForeColor, in the font selected in the context or else the
  // device's own. Then moves to the start of the next line.
  virtual void Print(const Text& text) = 0;
  // Size in twips of an unrotated text in the font of Print.
  virtual double TextWidth(const Text& text) = 0;
  virtual double TextHeight(const Text& text) = 0;
};

// The font of Print on a device: the selected one, or else the device's own.
inline LogicalFont FontInUse(Device& device) {
  if (device.hDC().Font) return *device.hDC().Font;
  LogicalFont font;
  font.FaceName = device.FontName;
  font.Height = device.FontSize * -20 / device.TwipsPerPixelY();
  font.Weight = device.FontBold ? kWeightBold : kWeightNormal;
  font.Italic = device.FontItalic;
  font.Underline = device.FontUnderline;
  font.StrikeOut = device.FontStrikethru;
  return font;
}

// The size of a text, in the unit of its font's height.
struct TextExtent {
  double Width = 0;
  double Height = 0;  // of the line
  double Ascent = 0;  // from the upper edge of the line to the baseline
};

// The fonts of the machine.
class FontBook {
 public:
  virtual ~FontBook() = default;
  // Names of the scalable families, sorted; at least one.
  virtual std::vector<Text> Families() = 0;
  // The name of the family that is really used for texts in `family`.
  virtual Text Substitute(const Text& family) = 0;
  virtual TextExtent Measure(const LogicalFont& font, const Text& text) = 0;
};

}  // namespace vantora
