#include "backends/qt/faces/drawing_widget.h"

#include "backends/qt/look/even_line.h"
#include "backends/qt/look/look.h"
#include "backends/qt/print/print_font.h"
#include "backends/qt/print/qt_image.h"

#include <QEvent>
#include <QFocusEvent>
#include <QFontMetricsF>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace vantora {

namespace {

constexpr double kDimmed = 0.38;
constexpr int kRing = 4;  // pixels that the focus ring takes at an edge, with its round corners
constexpr qsizetype kPiecePoints = 128;  // points in a piece of a line; unseen pieces are skipped

// A trace that moves up and down by more pixels than this per column is drawn as bars.
constexpr double kTravel = 6;

QPointF At(const std::vector<int>& numbers, std::size_t point, double twips) {
  return QPointF(numbers[2 * point], numbers[2 * point + 1]) / twips;
}

QPolygonF PointsOf(const DrawItem& item, double twips) {
  QPolygonF points;
  for (std::size_t i = 0; i < item.Points.size() / 2; ++i) points << At(item.Points, i, twips);
  return points;
}

// Keeps the first, the lowest, the highest and the last of consecutive points in a pixel column.
// The other points are not visible.
QPolygonF Thinned(const std::vector<int>& numbers, double twips) {
  const auto column = [&](std::size_t point) { return std::floor(numbers[2 * point] / twips); };
  const auto y = [&](std::size_t point) { return numbers[2 * point + 1]; };
  const std::size_t count = numbers.size() / 2;
  QPolygonF thin;
  for (std::size_t first = 0, end = 0; first < count; first = end) {
    std::size_t low = first, high = first;
    for (end = first + 1; end < count && column(end) == column(first); ++end) {
      if (y(end) < y(low)) low = end;
      if (y(end) > y(high)) high = end;
    }
    std::array<std::size_t, 4> kept = {first, std::min(low, high), std::max(low, high), end - 1};
    const auto last = std::unique(kept.begin(), kept.end());
    std::for_each(kept.begin(), last,
                  [&](std::size_t point) { thin << At(numbers, point, twips); });
  }
  return thin;
}

// Converts from the font's pixels to the widget's.
QTransform Turned(const LogicalFont& font, const QPointF& place, double scale) {
  constexpr double kTenths = 10;
  return QTransform()
      .translate(place.x(), place.y())
      .rotate(-font.Escapement / kTenths)
      .scale(scale, scale);
}

QRect ReachOf(const QPolygonF& points) {
  return points.boundingRect().toAlignedRect().adjusted(-1, -1, 2, 2);
}

// True for a horizontal or vertical line.
bool Straight(const QPolygonF& line) {
  return line.size() == 2 && (line[0].x() == line[1].x() || line[0].y() == line[1].y());
}

// True for a trace from left to right that has points in every pixel column and moves far up and
// down in them.
bool FillsColumns(const QPolygonF& line) {
  double travel = 0, columns = 1;
  for (qsizetype i = 1; i < line.size(); ++i) {
    const double step = std::floor(line[i].x()) - std::floor(line[i - 1].x());
    if (step != 0 && step != 1) return false;
    columns += step;
    travel += std::abs(line[i].y() - line[i - 1].y());
  }
  return travel > kTravel * columns;
}

QPointF PixelOf(const QPointF& point) {
  return {std::floor(point.x()), std::floor(point.y())};
}

QPolygonF StraightBar(const QPolygonF& line) {
  const QRectF touched = QRectF(PixelOf(line[0]), PixelOf(line[1])).normalized();
  return {touched.topLeft(), touched.bottomRight() + QPointF(1, 1)};
}

// One bar per pixel column, from the end of the column before over all points of the column.
QPolygonF ColumnBars(const QPolygonF& trace) {
  QPolygonF bars;
  double last = trace.first().y();
  for (qsizetype first = 0, end = 0; first < trace.size(); first = end) {
    const double x = std::floor(trace[first].x());
    double top = last, bottom = last;
    for (end = first; end < trace.size() && std::floor(trace[end].x()) == x; ++end) {
      last = trace[end].y();
      top = std::min(top, last);
      bottom = std::max(bottom, last);
    }
    bars << PixelOf({x, top}) << PixelOf({x, bottom}) + QPointF(1, 1);
  }
  return bars;
}

}  // namespace

bool DrawingWidget::Set(const PictureBox& box, double scale) {
  const QColor ground = look::Of(box.BackColor);
  if (box.Picture() != picture_ || ground != ground_) {
    picture_ = box.Picture;
    ground_ = ground;
    TellWhetherOpaque();
    update();
  }
  if (box.Revision() == revision_ && scale == scale_) return false;
  revision_ = box.Revision();
  scale_ = scale;
  std::vector<Mark> marks = MarksOf(box.Drawing());
  if (marks == marks_) return false;
  marks_ = std::move(marks);
  update();
  return true;
}

// An opaque background covers everything below, and the toolkit can scroll it without repainting.
void DrawingWidget::TellWhetherOpaque() {
  setAttribute(Qt::WA_OpaquePaintEvent, isEnabled() && ground_.alpha() == 255);
}

void DrawingWidget::changeEvent(QEvent* event) {
  if (event->type() == QEvent::EnabledChange) TellWhetherOpaque();
  QWidget::changeEvent(event);
}

void DrawingWidget::focusInEvent(QFocusEvent* /*event*/) {
  RenewRing();
}

void DrawingWidget::focusOutEvent(QFocusEvent* /*event*/) {
  RenewRing();
}

// The focus ring surrounds the visible part of the picture, so it must be redrawn when the picture
// moves. Only the ring is painted again: the picture itself is scrolled.
void DrawingWidget::RenewRing() {
  const QRect seen = hasFocus() ? visibleRegion().boundingRect() : QRect();
  for (const QRect& ring : {std::exchange(ring_, seen), seen}) {
    if (!ring.isEmpty()) update(QRegion(ring) - ring.adjusted(kRing, kRing, -kRing, -kRing));
  }
}

void DrawingWidget::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  if (hasFocus()) RenewRing();
}

double DrawingWidget::Twips() const {
  return kTwipsPerPixel / scale_;
}

std::vector<DrawingWidget::Mark> DrawingWidget::MarksOf(const std::vector<DrawItem>& items) const {
  std::vector<Mark> marks;
  for (const DrawItem& item : items) {
    Mark mark;
    mark.Kind = item.Kind;
    mark.Ink = look::Of(item.Ink);
    mark.Fill = look::Of(item.Fill);
    const bool one = item.Kind == DrawItem::What::Words;
    if (item.Points.size() < (one ? 2U : 4U)) continue;
    if (item.Kind == DrawItem::What::Line || item.Kind == DrawItem::What::Polyline) {
      AddLine(item, mark, marks);
      continue;
    }
    mark.Points = PointsOf(item, Twips());
    mark.Reach = ReachOf(mark.Points);
    if (one && item.FontName.empty()) {
      PlaceWords(item, mark);
    } else if (one) {
      PlaceTurned(item, mark);
    }
    if (item.Kind == DrawItem::What::Picture) {
      mark.Picture = item.Content;
      mark.Photo = item.Photo;
    }
    marks.push_back(std::move(mark));
  }
  return marks;
}

// Smoothing does not change straight lines and traces that fill their columns, and bars take a
// fifth of the time.
void DrawingWidget::AddLine(const DrawItem& item, const Mark& plain,
                            std::vector<Mark>& marks) const {
  const QPolygonF line = Thinned(item.Points, Twips());
  const bool straight = Straight(line), columns = FillsColumns(line);
  for (qsizetype first = 0; first == 0 || first < line.size() - 1; first += kPiecePoints) {
    Mark piece = plain;
    piece.Bars = straight || columns;
    piece.Points = line.mid(first, kPiecePoints + 1);  // includes the first point of the next piece
    if (straight) {
      piece.Points = StraightBar(piece.Points);
    } else if (columns) {
      piece.Points = ColumnBars(piece.Points);
    }
    piece.Reach = ReachOf(piece.Points);
    marks.push_back(std::move(piece));
  }
}

void DrawingWidget::PlaceWords(const DrawItem& item, Mark& mark) const {
  mark.Words = look::FromText(item.Content);
  mark.FontSize = item.FontSize;
  const QFontMetricsF metrics(look::FontOf(item.FontSize, false, scale_));
  const double width = metrics.horizontalAdvance(mark.Words);
  const double before = item.Align == Alignment::Left    ? 0
                        : item.Align == Alignment::Right ? width
                                                         : width / 2;
  const QPointF corner = mark.Points.first() - QPointF(before, 0);
  mark.Points = {corner + QPointF(0, metrics.ascent())};
  mark.Reach =
      QRectF(corner, QSizeF(width, metrics.height())).toAlignedRect().adjusted(-3, 0, 3, 0);
}

void DrawingWidget::PlaceTurned(const DrawItem& item, Mark& mark) const {
  const double wanted = item.FontTwips / Twips();
  const double whole = std::max(1.0, std::round(wanted));
  mark.Words = look::FromText(item.Content);
  mark.FontScale = wanted / whole;
  mark.Font.FaceName = item.FontName;
  mark.Font.Height = -whole;
  mark.Font.Weight = item.Bold ? kWeightBold : kWeightNormal;
  mark.Font.Italic = item.Italic;
  mark.Font.Underline = item.Underline;
  mark.Font.StrikeOut = item.StrikeOut;
  mark.Font.Escapement = item.Angle;
  const QFontMetricsF metrics(PrintFont(mark.Font));
  const QRectF cell(0, 0, metrics.horizontalAdvance(mark.Words), metrics.height());
  mark.Reach = Turned(mark.Font, mark.Points.first(), mark.FontScale)
                   .mapRect(cell)
                   .toAlignedRect()
                   .adjusted(-3, -3, 3, 3);
}

void DrawingWidget::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  if (!isEnabled()) painter.setOpacity(kDimmed);
  if (ground_.alpha() > 0) painter.fillRect(event->rect(), ground_);
  if (!picture_.empty()) {
    painter.drawPixmap(0, 0, pictures_.Get(picture_, size(), devicePixelRatioF()));
  }
  for (const Mark& mark : marks_) {
    if (event->region().intersects(mark.Reach)) Draw(painter, mark);
  }
  if (hasFocus()) look::DrawFocusRing(painter, visibleRegion().boundingRect());
}

void DrawingWidget::Draw(QPainter& painter, const Mark& mark) {
  QPen pen(mark.Ink, 1);
  pen.setCosmetic(true);
  painter.setPen(mark.Ink.alpha() == 0 ? QPen(Qt::NoPen) : pen);
  painter.setBrush(mark.Fill.alpha() == 0 ? QBrush(Qt::NoBrush) : QBrush(mark.Fill));
  painter.setRenderHint(QPainter::Antialiasing, !mark.Bars);
  switch (mark.Kind) {
    case DrawItem::What::Line:
    case DrawItem::What::Polyline:
      DrawLine(painter, mark);
      return;
    case DrawItem::What::Rectangle:
      painter.fillRect(QRect(mark.Points[0].toPoint(), mark.Points[1].toPoint() - QPoint(1, 1)),
                       mark.Ink);
      return;
    case DrawItem::What::Polygon:
      painter.drawPolygon(mark.Points.translated(0.5, 0.5));
      return;
    case DrawItem::What::Words:
      if (!mark.Font.FaceName.empty()) return DrawTurned(painter, mark);
      painter.setFont(look::FontOf(mark.FontSize, false, scale_));
      painter.drawText(mark.Points.first(), mark.Words);
      return;
    case DrawItem::What::Picture:
      return DrawPicture(painter, mark);
  }
}

void DrawingWidget::DrawTurned(QPainter& painter, const Mark& mark) {
  const QFont font = PrintFont(mark.Font);
  const QFontMetricsF metrics(font);
  painter.save();
  painter.setTransform(Turned(mark.Font, mark.Points.first(), mark.FontScale), true);
  painter.setRenderHint(QPainter::TextAntialiasing);
  if (mark.Fill.alpha() != 0) {
    painter.fillRect(QRectF(0, 0, metrics.horizontalAdvance(mark.Words), metrics.height()),
                     mark.Fill);
  }
  painter.setFont(font);
  painter.setPen(mark.Ink);
  painter.drawText(QPointF(0, metrics.ascent()), mark.Words);
  painter.restore();
}

void DrawingWidget::DrawPicture(QPainter& painter, const Mark& mark) {
  const QRect place = QRectF(mark.Points[0], mark.Points[1]).toAlignedRect();
  const double density = devicePixelRatioF();
  if (const auto* photo = dynamic_cast<const QtImage*>(mark.Photo.get())) {
    painter.drawImage(place, photo->Scaled((QSizeF(place.size()) * density).toSize()));
  } else {
    painter.drawPixmap(place.topLeft(), pictures_.Get(mark.Picture, place.size(), density));
  }
}

// Smoothed lines are drawn through the centres of the pixels.
void DrawingWidget::DrawLine(QPainter& painter, const Mark& mark) {
  if (!mark.Bars) {
    painter.drawPolyline(mark.Points.translated(0.5, 0.5));
    return;
  }
  const bool line = mark.Points.size() == 2;
  for (qsizetype i = 0; i + 1 < mark.Points.size(); i += 2) {
    const QRectF bar(mark.Points[i], mark.Points[i + 1]);
    painter.fillRect(line ? look::EvenLine(painter, bar) : bar, mark.Ink);
  }
}

}  // namespace vantora
