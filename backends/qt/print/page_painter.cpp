#include "backends/qt/print/page_painter.h"

#include "backends/qt/look/look.h"
#include "backends/qt/print/offscreen_app.h"
#include "backends/qt/print/print_font.h"
#include "backends/qt/print/qt_image.h"

#include "platform/twips.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>

#include <algorithm>
#include <cmath>
#include <tuple>

namespace vantora {

namespace {

constexpr long long kMostLossless = 8'000'000;  // pixels; compressing more takes seconds

double Pixels(double twips) {
  return twips / kPrintTwipsPerPixel;
}

QPointF At(const PrintPoint& point) {
  return {Pixels(point.X), Pixels(point.Y)};
}

QRectF Between(const PrintItem& item) {
  return QRectF(At(item.Points[0]), At(item.Points[1])).normalized();
}

QPen PenOf(const PrintItem& item) {
  static constexpr Qt::PenStyle kStyles[] = {Qt::SolidLine,   Qt::DashLine,       Qt::DotLine,
                                             Qt::DashDotLine, Qt::DashDotDotLine, Qt::NoPen,
                                             Qt::SolidLine};
  const auto style = static_cast<std::size_t>(std::clamp(item.Style, 0, 6));
  return QPen(look::Of(item.Ink), item.Width, kStyles[style], Qt::FlatCap, Qt::MiterJoin);
}

struct Dot {
  int X, Y;
  bool operator==(const Dot&) const = default;
};

// Turns runs of neighbouring dots along a row or column into one rectangle each. Returns the other
// dots.
template <typename Along, typename Across>
std::vector<Dot> TakeRuns(std::vector<Dot> dots, int side, bool all, QList<QRectF>& boxes,
                          Along along, Across across) {
  std::sort(dots.begin(), dots.end(), [&](const Dot& a, const Dot& b) {
    return std::tie(a.*across, a.*along) < std::tie(b.*across, b.*along);
  });
  std::vector<Dot> alone;
  for (std::size_t first = 0, end = 0; first < dots.size(); first = end) {
    for (end = first + 1; end < dots.size(); ++end) {
      const bool next = dots[end].*across == dots[first].*across &&
                        dots[end].*along - dots[end - 1].*along <= side;
      if (!next) break;
    }
    const Dot &from = dots[first], &to = dots[end - 1];
    if (!all && from == to) {
      alone.push_back(from);
    } else {
      boxes << QRectF(QPointF(from.X, from.Y), QPointF(to.X + side, to.Y + side));
    }
  }
  return alone;
}

void DrawPoints(QPainter& painter, const PrintItem& item) {
  const double before = (item.Width - 1) / 2.0;
  std::vector<Dot> dots;
  dots.reserve(item.Points.size());
  for (const PrintPoint& point : item.Points) {
    dots.push_back({static_cast<int>(std::floor(Pixels(point.X) - before)),
                    static_cast<int>(std::floor(Pixels(point.Y) - before))});
  }
  QList<QRectF> boxes;
  dots = TakeRuns(std::move(dots), item.Width, false, boxes, &Dot::X, &Dot::Y);
  TakeRuns(std::move(dots), item.Width, true, boxes, &Dot::Y, &Dot::X);
  painter.setPen(Qt::NoPen);
  painter.setBrush(look::Of(item.Ink));
  painter.drawRects(boxes);
}

// Control characters become blanks.
QString OneLine(const Text& words) {
  QString line = look::FromText(words);
  for (QChar& c : line) {
    if (c < u' ') c = u' ';
  }
  return line;
}

void DrawWords(QPainter& painter, const PrintItem& item) {
  constexpr double kTenths = 10;
  const QFont font = PrintFont(item.Font);
  const QFontMetricsF metrics(font, painter.device());
  const QString words = OneLine(item.Content);
  painter.save();
  painter.translate(At(item.Points[0]));
  painter.rotate(-item.Font.Escapement / kTenths);
  if (item.Ground != kTransparent) {
    painter.fillRect(QRectF(0, 0, metrics.horizontalAdvance(words), metrics.height()),
                     look::Of(item.Ground));
  }
  painter.setFont(font);
  painter.setPen(look::Of(item.Ink));
  painter.drawText(QPointF(0, metrics.ascent()), words);
  painter.restore();
}

void DrawPicture(QPainter& painter, const PrintItem& item) {
  const auto* picture = dynamic_cast<const QtImage*>(item.Picture.get());
  if (picture == nullptr) return;
  const QImage whole = picture->Whole();
  const bool lossless = !picture->Lossy() && 1LL * whole.width() * whole.height() <= kMostLossless;
  painter.setRenderHint(QPainter::LosslessImageRendering, lossless);
  const QRectF place = Between(item);
  painter.save();
  painter.translate(place.topLeft());
  painter.scale(place.width(), place.height());
  painter.setTransform(picture->Upright(), true);
  painter.drawImage(QRectF(0, 0, 1, 1), whole);
  painter.restore();
}

void Draw(QPainter& painter, const PrintItem& item) {
  painter.setPen(PenOf(item));
  painter.setBrush(Qt::NoBrush);
  switch (item.Kind) {
    case PrintItem::What::Words:
      return DrawWords(painter, item);
    case PrintItem::What::Line:
      return painter.drawLine(At(item.Points[0]), At(item.Points[1]));
    case PrintItem::What::Box:
      return painter.drawRect(Between(item));
    case PrintItem::What::FilledBox:
      return painter.fillRect(Between(item), look::Of(item.Ink));
    case PrintItem::What::Circle:
      return painter.drawEllipse(At(item.Points[0]), Pixels(item.Radius), Pixels(item.Radius));
    case PrintItem::What::Points:
      return DrawPoints(painter, item);
    case PrintItem::What::Picture:
      return DrawPicture(painter, item);
  }
}

QPageSize SizeOf(const PaperSize& paper) {
  if (paper.Name == kPaperA4.Name) return QPageSize(QPageSize::A4);
  if (paper.Name == kPaperLetter.Name) return QPageSize(QPageSize::Letter);
  return QPageSize(QSizeF(paper.Width, paper.Height) / kTwipsPerInch, QPageSize::Inch,
                   look::FromText(paper.Name), QPageSize::ExactMatch);
}

}  // namespace

QByteArray PdfOf(const PrintJob& job) {
  NeedToolkit();
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  {
    QPdfWriter writer(&buffer);
    writer.setCreator(QStringLiteral("Vantora"));
    writer.setResolution(static_cast<int>(kTwipsPerInch / kPrintTwipsPerPixel));
    const bool landscape = job.Orientation == kLandscape;
    writer.setPageLayout(QPageLayout(SizeOf(job.Sheet.Paper),
                                     landscape ? QPageLayout::Landscape : QPageLayout::Portrait,
                                     QMarginsF(), QPageLayout::Point, QMarginsF()));
    QPainter painter(&writer);
    painter.translate(Pixels(job.Sheet.OffsetX(job.Orientation)),
                      Pixels(job.Sheet.OffsetY(job.Orientation)));
    for (const PrintItem& item : job.Items) Draw(painter, item);
  }
  return bytes;
}

}  // namespace vantora
