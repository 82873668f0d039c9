// The printers of the machine, and the one that is printed on. All calls are from the interface
// thread.
//
// The origin of a page is the corner of its printable area, and Width and Height are the size of
// that area. DeviceCaps returns the distance of the corner from the paper's edge. Positions are in
// twips.
#pragma once

#include "platform/device_text.h"
#include "platform/images.h"
#include "platform/twips.h"

#include <filesystem>

namespace vantora {

enum PrinterOrientation : int { kPortrait = 1, kLandscape = 2 };
enum PrinterDrawStyle : int {
  kDrawSolid = 0,
  kDrawDash = 1,
  kDrawDot = 2,
  kDrawDashDot = 3,
  kDrawDashDotDot = 4,
  kDrawInvisible = 5,  // a filled box has no edge
  kDrawInsideSolid = 6,
};
enum class LineKind { Line, Box, FilledBox };  // a box is given by two corners
enum class DeviceCap {
  PhysicalWidth = 110,  // of the sheet in its orientation; all in pixels of the device
  PhysicalHeight = 111,
  PhysicalOffsetX = 112,  // margin between the paper's edge and the printable area
  PhysicalOffsetY = 113,
};

struct PaperSize {
  Text Name;                     // "A4", "Letter"
  double Width = 0, Height = 0;  // in twips, in portrait orientation
};

// In portrait orientation.
inline const PaperSize kPaperA4{L"A4", 210 * kTwipsPerMm, 297 * kTwipsPerMm};
inline const PaperSize kPaperLetter{L"Letter", 8.5 * kTwipsPerInch, 11 * kTwipsPerInch};

// A job begins with the first call that draws or writes, even a Print of an empty text, and ends
// with EndDoc. Calls raise 482 when the printer fails or no longer exists, and the errors of
// Dateien (70, 75, 76, 61, 57) when a file cannot be written. An error ends the job and leaves no
// part of a file.
class Printer : public Device {
 public:
  // Settings for the next job. Changes during a job apply to the job after it.
  int Orientation = kPortrait;
  int Copies = 1;   // 1 to 99; a PDF has only one
  Text OutputFile;  // file of the PDF printer; an existing file is replaced

  int DrawStyle = kDrawSolid;  // for lines and circles
  int DrawWidth = 1;           // in pixels of the device; for lines, circles and points

  virtual double Width() = 0;   // of the printable area, in the orientation set
  virtual double Height() = 0;  // of the printable area, in the orientation set
  virtual double DeviceCaps(DeviceCap what) = 0;
  virtual PaperSize Paper() = 0;

  virtual void Line(double x1, double y1, double x2, double y2, Color color,
                    LineKind kind = LineKind::Line) = 0;
  virtual void Circle(double x, double y, double radius, Color color) = 0;
  // Draws a square of DrawWidth pixels at a whole pixel. Efficient for tens of thousands of points.
  virtual void PSet(double x, double y, Color color) = 0;
  // Stretches the whole picture over the rectangle, with all its pixels. A null picture draws
  // nothing.
  virtual void PaintPicture(const Bild& picture, double x, double y, double width,
                            double height) = 0;
  // Prints the page; the job is complete when it returns. Without effect when there is no job.
  virtual void EndDoc() = 0;
  virtual void KillDoc() = 0;  // cancels the job without a trace
};

class Printers {
 public:
  virtual ~Printers() = default;
  // The system's queues and, last, a printer that writes PDF files. 0 only on a platform that has
  // neither.
  virtual int Count() = 0;
  virtual Text Name(int index) = 0;         // `index` from 0
  virtual bool WritesFile(int index) = 0;   // true for the PDF printer
  virtual PaperSize Paper(int index) = 0;   // loaded in the printer
  virtual int Current() = 0;                // initially the default printer; -1 without any
  virtual void Select(int index) = 0;       // applies from the next job on
  virtual vantora::Printer& Printer() = 0;  // the current printer; raises 482 without any
  // The file for a PDF when the caller names none; blank when the user should choose.
  virtual Text SuggestedFile() = 0;
};

// Settings with which a test or the robot replaces those of the machine.
struct PrinterSetup {
  bool Present = true;  // false: no printer at all
  std::filesystem::path
      PdfFolder;  // jobs become 001.pdf, 002.pdf … in this folder; blank: they do not
  double MarginX = 0, MarginY = 0;  // in twips, in portrait orientation
  Text Paper;                       // "A4" or "Letter"; blank: the machine's
};

}  // namespace vantora
