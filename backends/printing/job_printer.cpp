#include "backends/printing/job_printer.h"

#include <algorithm>
#include <utility>

namespace vantora {

namespace {

constexpr int kMostCopies = 99;

}  // namespace

PrintSheet JobPrinter::Sheet() {
  return job_ ? job_->Sheet : target_.Sheet();
}

PrintJob& JobPrinter::Job() {
  if (!job_) {
    target_.Begin();
    job_ = PrintJob{target_.Sheet(),
                    Orientation == kLandscape ? kLandscape : kPortrait,
                    std::clamp(Copies, 1, kMostCopies),
                    OutputFile,
                    {}};
  }
  return *job_;
}

void JobPrinter::EndDoc() {
  if (!job_) return;
  const PrintJob job = std::move(*job_);
  job_.reset();
  target_.Deliver(job);
}

double JobPrinter::Width() {
  const PrintSheet sheet = Sheet();
  return sheet.PaperWidth(Turned()) - 2 * sheet.OffsetX(Turned());
}

double JobPrinter::Height() {
  const PrintSheet sheet = Sheet();
  return sheet.PaperHeight(Turned()) - 2 * sheet.OffsetY(Turned());
}

double JobPrinter::DeviceCaps(DeviceCap what) {
  const PrintSheet sheet = Sheet();
  const double twips = what == DeviceCap::PhysicalWidth     ? sheet.PaperWidth(Turned())
                       : what == DeviceCap::PhysicalHeight  ? sheet.PaperHeight(Turned())
                       : what == DeviceCap::PhysicalOffsetX ? sheet.OffsetX(Turned())
                                                            : sheet.OffsetY(Turned());
  return twips / kPrintTwipsPerPixel;
}

PrintItem& JobPrinter::Add(PrintItem::What kind, std::vector<PrintPoint> points, Color ink) {
  PrintItem item;
  item.Kind = kind;
  item.Points = std::move(points);
  item.Ink = ink;
  item.Style = DrawStyle;
  item.Width = std::max(DrawWidth, 1);
  return Job().Items.emplace_back(std::move(item));
}

void JobPrinter::Line(double x1, double y1, double x2, double y2, Color color, LineKind kind) {
  const PrintItem::What what = kind == LineKind::Line  ? PrintItem::What::Line
                               : kind == LineKind::Box ? PrintItem::What::Box
                                                       : PrintItem::What::FilledBox;
  Add(what, {{x1, y1}, {x2, y2}}, color);
}

void JobPrinter::Circle(double x, double y, double radius, Color color) {
  Add(PrintItem::What::Circle, {{x, y}}, color).Radius = radius;
}

// Consecutive points of one colour and width become one item, since a page has many thousands of
// them.
void JobPrinter::PSet(double x, double y, Color color) {
  std::vector<PrintItem>& items = Job().Items;
  const bool more = !items.empty() && items.back().Kind == PrintItem::What::Points &&
                    items.back().Ink == color && items.back().Width == std::max(DrawWidth, 1);
  if (more) {
    items.back().Points.push_back({x, y});
  } else {
    Add(PrintItem::What::Points, {{x, y}}, color);
  }
}

void JobPrinter::PaintPicture(const Bild& picture, double x, double y, double width,
                              double height) {
  Job();
  if (picture) {
    Add(PrintItem::What::Picture, {{x, y}, {x + width, y + height}}, 0).Picture = picture;
  }
}

void JobPrinter::Write(double x, double y, const Text& text, Color color) {
  Job();
  if (text.empty()) return;
  PrintItem& item = Add(PrintItem::What::Words, {{x, y}}, color);
  item.Content = text;
  item.Font = FontInUse(*this);
  if (context_.BkMode == kBackgroundOpaque) item.Ground = context_.BkColor;
}

void JobPrinter::Print(const Text& text) {
  Write(CurrentX, CurrentY, text, ForeColor);
  if (text.empty()) return;
  CurrentX = 0;
  CurrentY += TextHeight(text);
}

void JobPrinter::Context::TextOut(double x, double y, const Text& text) {
  printer_.Write(x * kPrintTwipsPerPixel, y * kPrintTwipsPerPixel, text, TextColor);
}

double JobPrinter::TextWidth(const Text& text) {
  return fonts_.Measure(FontInUse(*this), text).Width * kPrintTwipsPerPixel;
}

double JobPrinter::TextHeight(const Text& text) {
  return fonts_.Measure(FontInUse(*this), text).Height * kPrintTwipsPerPixel;
}

}  // namespace vantora
