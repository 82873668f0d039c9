// What a page is made of, written down in order: it is drawn when the job is sent, so that a job
// which is given up leaves nothing behind. Places are in twips from the corner of the printable
// area.
#pragma once

#include "platform/printer.h"

#include <vector>

namespace vantora {

constexpr double kPrintTwipsPerPixel = 2;  // 720 pixels an inch, on paper and in files

struct PrintPoint {
  double X = 0, Y = 0;
  bool operator==(const PrintPoint&) const = default;
};

struct PrintItem {
  enum class What { Words, Line, Box, FilledBox, Circle, Points, Picture } Kind = What::Line;
  // Of a text and of a circle its place; of lines and boxes two points; of a picture two corners.
  std::vector<PrintPoint> Points;
  Color Ink = 0;
  Text Content;
  LogicalFont Font;             // its height in pixels
  Color Ground = kTransparent;  // under a text
  double Radius = 0;
  int Style = kDrawSolid, Width = 1;  // pixels
  Bild Picture;
};

struct PrintSheet {
  PaperSize Paper;
  double MarginX = 0, MarginY = 0;  // of the upright sheet, twips

  // As it is turned.
  double PaperWidth(int orientation) const {
    return orientation == kLandscape ? Paper.Height : Paper.Width;
  }
  double PaperHeight(int orientation) const {
    return orientation == kLandscape ? Paper.Width : Paper.Height;
  }
  double OffsetX(int orientation) const { return orientation == kLandscape ? MarginY : MarginX; }
  double OffsetY(int orientation) const { return orientation == kLandscape ? MarginX : MarginY; }
};

struct PrintJob {
  PrintSheet Sheet;
  int Orientation = kPortrait;
  int Copies = 1;
  Text OutputFile;
  std::vector<PrintItem> Items;
};

// Where jobs go.
class PrintTarget {
 public:
  virtual ~PrintTarget() = default;
  virtual PrintSheet Sheet() = 0;  // of the current printer
  virtual void Begin() = 0;        // raises 482 when the printer is not there any more
  // Raises what a Printer raises; the job has then come to nothing.
  virtual void Deliver(const PrintJob& job) = 0;
};

}  // namespace vantora
