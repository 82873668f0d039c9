// Printers: the collection of those that the machine has, and the one that is printed on.
//
// The origin of a page is the corner of its printable area, and Width and Height are that area's.
// The distance of that corner from the paper's edge is a device capability. Places are in twips.
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
  kDrawInvisible = 5,  // of a filled box: no edge
  kDrawInsideSolid = 6,
};
enum class LineKind { Line, Box, FilledBox };  // a box has the two points as its corners
enum class DeviceCap {
  PhysicalWidth = 110,  // of the sheet as it is turned; all in pixels of the device
  PhysicalHeight = 111,
  PhysicalOffsetX = 112,  // from the paper's edge to the printable area: the margin
  PhysicalOffsetY = 113,
};

struct PaperSize {
  Text Name;                     // "A4", "Letter"
  double Width = 0, Height = 0;  // twips, upright
};

// Upright, twips.
inline const PaperSize kPaperA4{L"A4", 210 * kTwipsPerMm, 297 * kTwipsPerMm};
inline const PaperSize kPaperLetter{L"Letter", 8.5 * kTwipsPerInch, 11 * kTwipsPerInch};

// A job begins with what is drawn or written first and ends with EndDoc; a Print of an empty text
// begins it as well. Calls raise 482 when the printer fails or is there no more, and the errors of
// Dateien (70, 75, 76, 61, 57) when a file cannot be written. Either ends the job, and leaves no
// part of a file.
class Printer : public Device {
 public:
  // Of the next job; what changes while one runs is heeded by the one after it.
  int Orientation = kPortrait;
  int Copies = 1;   // 1 to 99; a file has one
  Text OutputFile;  // where the PDF printer writes to, in place of what is there

  int DrawStyle = kDrawSolid;  // of lines and circles
  int DrawWidth = 1;           // pixels of the device; of lines, circles and points

  virtual double Width() = 0;   // of the printable area, turned as Orientation says
  virtual double Height() = 0;  // the same
  virtual double DeviceCaps(DeviceCap what) = 0;
  virtual PaperSize Paper() = 0;

  virtual void Line(double x1, double y1, double x2, double y2, Color color,
                    LineKind kind = LineKind::Line) = 0;
  virtual void Circle(double x, double y, double radius, Color color) = 0;
  // A square of DrawWidth pixels, on whole pixels. Points may come by the ten thousand.
  virtual void PSet(double x, double y, Color color) = 0;
  // The whole picture over the rectangle, in all its points; no picture is nothing.
  virtual void PaintPicture(const Bild& picture, double x, double y, double width,
                            double height) = 0;
  // Sends the page; the job is done when it returns. No effect without one.
  virtual void EndDoc() = 0;
  virtual void KillDoc() = 0;  // the job leaves nothing behind
};

class Printers {
 public:
  virtual ~Printers() = default;
  // The machine's queues, and last a printer that writes a PDF: none only where a platform has
  // neither.
  virtual int Count() = 0;
  virtual Text Name(int index) = 0;         // from 0
  virtual bool WritesFile(int index) = 0;   // the PDF printer
  virtual PaperSize Paper(int index) = 0;   // that lies in it
  virtual int Current() = 0;                // at first the machine's default one; -1 without any
  virtual void Select(int index) = 0;       // the one that is printed on from the next job on
  virtual vantora::Printer& Printer() = 0;  // of the current printer; 482 without any
  // Where a PDF goes when nobody names a file; blank on a machine whose user is to choose.
  virtual Text SuggestedFile() = 0;
};

// What a test or the robot says of the printers in place of the machine.
struct PrinterSetup {
  bool Present = true;  // false: no printer at all
  std::filesystem::path
      PdfFolder;  // each job becomes the next of 001.pdf, 002.pdf …; blank: not so
  double MarginX = 0, MarginY = 0;  // twips, of the upright sheet
  Text Paper;                       // "A4" or "Letter"; blank: as the machine has it
};

}  // namespace vantora
