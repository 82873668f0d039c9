// What is only drawn: panels, drawings and bars of light.
#pragma once

#include "platform/controls/control.h"
#include "platform/images.h"

namespace vantora {

// A filled rectangle: a panel, a line (one side 15 twips) or a bar.
class Shape : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::Shape; }

  Property<Color> FillColor{*this, Rgb(53, 55, 99)};
  Property<Color> BorderColor{*this, kTransparent};
  Property<int> Opacity{*this, 100};  // percent; below 100 what lies beneath shines through
};

// What a picture box draws, in twips from its upper left corner, in order.
struct DrawItem {
  enum class What { Line, Polyline, Rectangle, Words, Picture, Polygon } Kind = What::Line;
  std::vector<int> Points;  // x, y, x, y …; rectangle and picture: left, top, right, bottom
  Color Ink = 0;
  Text Content;  // the text, or the picture's resource name
  int FontSize = 9;
  Color Fill = kTransparent;  // of a polygon, whose edge is the ink; either may be transparent
  // Where words stand: from their point to the right, around it, or up to it.
  Alignment Align = Alignment::Left;
  // Of words in a font that is not the windows' own (FontName is not blank). They begin at their
  // point, the corner of the first letter's cell, and are turned around it; Fill lies beneath them.
  Text FontName = {};
  double FontTwips = 0;  // the size of the letters
  bool Bold = false, Italic = false, Underline = false, StrikeOut = false;
  int Angle = 0;    // tenths of a degree, against the clock
  Bild Photo = {};  // of a picture: this one instead of a resource
};

// Takes the focus when something hangs on its KeyDown.
class PictureBox : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::PictureBox; }
  std::optional<Text> Read(const Text& property) const override;

  void Cls();
  void Draw(DrawItem item);
  const std::vector<DrawItem>& Drawing() const { return drawing_; }
  int Revision() const { return revision_; }  // another one when something else is drawn
  Property<Text> Picture{*this, Text()};      // resource name of the ground

 private:
  std::vector<DrawItem> drawing_;
  int revision_ = 0;
};

enum class Ears { Both, Left, Right };

// Bars of light for what is heard, left and right. A tall one stands upright.
class LevelMeter : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::LevelMeter; }
  std::optional<Text> Read(const Text& property) const override;

  Property<bool> Active{*this, false};
  Property<int> PeakLeft{*this, 0}, PeakRight{*this, 0};  // 0 to 32767
  Property<int> Mark{*this, 0};                           // a peak that is marked, 0 for none
  Ears Shown = Ears::Both;
};

}  // namespace vantora
