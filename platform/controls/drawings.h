// Controls that show drawings: shapes, picture boxes and level meters.
#pragma once

#include "platform/controls/control.h"
#include "platform/images.h"

namespace vantora {

constexpr int kNoGauge = -1;

// A filled rectangle: a panel, a line (one side 15 twips) or a bar.
class Shape : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::Shape; }

  Property<Color> FillColor{*this, Rgb(53, 55, 99)};
  Property<Color> BorderColor{*this, kTransparent};
  Property<int> Opacity{*this, 100};  // percent; below 100 the controls beneath shine through
  // Set for the frame of a progress bar or of a gauge: how full it is, in percent. A screen reader
  // speaks it. The bar itself is another shape.
  Property<int> Percent{*this, kNoGauge};
  // Set for a lamp. A screen reader speaks the state.
  Property<Lamp> State{*this, Lamp::None};
};

// One item of the drawing of a picture box. Items are drawn in their order. Places are in twips
// from the upper left corner of the box.
struct DrawItem {
  enum class What { Line, Polyline, Rectangle, Words, Picture, Polygon } Kind = What::Line;
  std::vector<int> Points;  // x, y, x, y …; for rectangle and picture: left, top, right, bottom
  Color Ink = 0;
  Text Content;  // the text, or the picture's resource name
  int FontSize = 9;
  // The colour inside a polygon. The edge of the polygon has the colour Ink. Either colour may be
  // transparent.
  Color Fill = kTransparent;
  // The place of words: they begin at their point (Left), end there (Right), or have it in their
  // middle (Center).
  Alignment Align = Alignment::Left;
  // For words in a font of their own (FontName is not blank). The words begin at their point, which
  // is the corner of the cell of the first letter. They are turned around that point. The colour
  // Fill lies beneath the words.
  Text FontName = {};
  double FontTwips = 0;  // the size of the letters
  bool Bold = false, Italic = false, Underline = false, StrikeOut = false;
  int Angle = 0;    // tenths of a degree, counterclockwise
  Bild Photo = {};  // for a picture: drawn instead of a resource
};

// A box that shows a drawing over a background picture. It takes the focus if its KeyDown has a
// handler.
class PictureBox : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::PictureBox; }
  std::optional<Text> Read(const Text& property) const override;

  void Cls();
  void Draw(DrawItem item);
  const std::vector<DrawItem>& Drawing() const { return drawing_; }
  int Revision() const { return revision_; }  // changes together with the drawing
  Property<Text> Picture{*this, Text()};      // resource name of the background

 private:
  std::vector<DrawItem> drawing_;
  int revision_ = 0;
};

enum class Ears { Both, Left, Right };

// Two bars that show the level of the sound heard on the left and on the right. The bars stand
// upright if the control is higher than wide.
class LevelMeter : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::LevelMeter; }
  std::optional<Text> Read(const Text& property) const override;

  Property<bool> Active{*this, false};
  Property<int> PeakLeft{*this, 0}, PeakRight{*this, 0};  // 0 to 32767
  Property<int> Mark{*this, 0};  // the level at which a mark is drawn, 0 for none
  Ears Shown = Ears::Both;
};

}  // namespace vantora
