// Text on a device, be it a sheet of paper or a picture box: fonts that can be turned, and what is
// written with them. Places and sizes of a device are in twips (1/1440 inch) from its upper left
// corner; those of its context are in pixels of the device.
#pragma once

#include "platform/controls.h"
#include "platform/text.h"

#include <memory>
#include <utility>
#include <vector>

namespace vantora {

constexpr int kWeightNormal = 400, kWeightBold = 700;

struct LogicalFont {
  Text FaceName;        // up to 32 characters count
  double Height = 0;    // pixels of the device; below 0: of the letters, above: of the line
  int Escapement = 0;   // tenths of a degree, against the clock: 900 reads upwards
  int Orientation = 0;  // the same as the escapement
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

// What text on a device is written with.
class DeviceContext {
 public:
  virtual ~DeviceContext() = default;

  FontHandle Font;  // nothing: the device's own, by its FontName and the rest
  Color TextColor = 0;
  Color BkColor = Rgb(255, 255, 255);
  int BkMode = kBackgroundTransparent;

  // The upper left corner of the first letter's cell is at the place, and the text is turned around
  // that corner. It is written in TextColor.
  virtual void TextOut(double x, double y, const Text& text) = 0;  // pixels
};

// The font that was selected before.
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

// What can be written on.
class Device {
 public:
  virtual ~Device() = default;

  double CurrentX = 0, CurrentY = 0;  // where the next Print begins, twips
  Text FontName = L"Arial";
  double FontSize = 10;  // points
  bool FontBold = false, FontItalic = false, FontUnderline = false, FontStrikethru = false;
  Color ForeColor = 0;

  virtual double TwipsPerPixelX() const = 0;
  virtual double TwipsPerPixelY() const = 0;
  virtual DeviceContext& hDC() = 0;
  // Writes at CurrentX and CurrentY in ForeColor, with the font that is selected in the context if
  // there is one, and goes to the beginning of the next line.
  virtual void Print(const Text& text) = 0;
  // Of a text that stands upright in the font that Print would take; twips.
  virtual double TextWidth(const Text& text) = 0;
  virtual double TextHeight(const Text& text) = 0;
};

// The font that Print takes on a device: the selected one, or else the device's own.
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

// How far a text reaches, in the unit in which the height of its font is.
struct TextExtent {
  double Width = 0;
  double Height = 0;  // of the line
  double Ascent = 0;  // from the upper edge of the line to the base line
};

// The fonts of the machine.
class FontBook {
 public:
  virtual ~FontBook() = default;
  // The names of the families that letters can be written in, sorted; at least one.
  virtual std::vector<Text> Families() = 0;
  // The name of the family that a text in `family` is really written in.
  virtual Text Substitute(const Text& family) = 0;
  virtual TextExtent Measure(const LogicalFont& font, const Text& text) = 0;
};

}  // namespace vantora
