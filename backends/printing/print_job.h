// The items of a print job in order. They are drawn when the job is sent, so that a cancelled job
// leaves nothing behind. Positions are in twips from the corner of the printable area.
#pragma once

#include "platform/printer.h"

#include <vector>

namespace vantora {

constexpr double kPrintTwipsPerPixel = 2;  // 720 pixels per inch, on paper and in files

struct PrintPoint {
  double X = 0, Y = 0;
  bool operator==(const PrintPoint&) const = default;
};

struct PrintItem {
  enum class What { Words, Line, Box, FilledBox, Circle, Points, Picture } Kind = What::Line;
  // The position of a text or circle, the two ends of a line or box, or two corners of a picture.
  std::vector<PrintPoint> Points;
  Color Ink = 0;
  Text Content;
  LogicalFont Font;             // its height is in pixels
  Color Ground = kTransparent;  // behind a text
  double Radius = 0;
  int Style = kDrawSolid, Width = 1;  // in pixels
  Bild Picture;
};

struct PrintSheet {
  PaperSize Paper;
  double MarginX = 0, MarginY = 0;  // in portrait orientation, in twips

  // The paper's size in the given orientation.
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

// The destination of print jobs.
class PrintTarget {
 public:
  virtual ~PrintTarget() = default;
  virtual PrintSheet Sheet() = 0;  // of the current printer
  virtual void Begin() = 0;        // raises 482 when the printer no longer exists
  // Prints the job. Raises the errors of Printer; nothing has been printed then.
  virtual void Deliver(const PrintJob& job) = 0;
};

}  // namespace vantora
