#include "backends/qt/drawing_widget.h"

#include "backends/qt/look.h"

#include <QEvent>
#include <QFocusEvent>
#include <QFontMetricsF>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <array>
#include <utility>

namespace vantora {

namespace {

constexpr double kDimmed = 0.38;
constexpr qsizetype kPiecePoints =
    128;  // of a polyline, so that what is out of sight is passed over

QPointF At(const std::vector<int>& numbers, std::size_t point) {
  return QPointF(numbers[2 * point], numbers[2 * point + 1]) / look::kTwipsPerPixel;
}

QPolygonF PointsOf(const DrawItem& item) {
  QPolygonF points;
  for (std::size_t i = 0; i < item.Points.size() / 2; ++i) points << At(item.Points, i);
  return points;
}

// Of successive points in one column of pixels the first, the lowest, the highest and the last say
// all that can be seen.
QPolygonF Thinned(const std::vector<int>& numbers) {
  const auto column = [&](std::size_t point) {
    const int x = numbers[2 * point];
    return (x < 0 ? x - look::kTwipsPerPixel + 1 : x) / look::kTwipsPerPixel;
  };
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
    std::for_each(kept.begin(), last, [&](std::size_t point) { thin << At(numbers, point); });
  }
  return thin;
}

QRect ReachOf(const QPolygonF& points) {
  return points.boundingRect().toAlignedRect().adjusted(-1, -1, 2, 2);
}

// Lines along the edges of pixels are drawn on pixels; all others are smoothed, about the middle of
// theirs.
bool Straight(const QPolygonF& points) {
  return points.size() == 2 && (points[0].x() == points[1].x() || points[0].y() == points[1].y());
}

}  // namespace

void DrawingWidget::Set(const PictureBox& box) {
  const QColor ground = look::Of(box.BackColor);
  if (box.Picture() != picture_ || ground != ground_) {
    picture_ = box.Picture;
    ground_ = ground;
    TellWhetherOpaque();
    update();
  }
  if (box.Revision() == revision_) return;
  revision_ = box.Revision();
  std::vector<Mark> marks = MarksOf(box.Drawing());
  if (marks == marks_) return;
  marks_ = std::move(marks);
  update();
}

// A ground without holes is painted over whatever was there, and moves without being painted anew.
void DrawingWidget::TellWhetherOpaque() {
  setAttribute(Qt::WA_OpaquePaintEvent, isEnabled() && ground_.alpha() == 255);
}

void DrawingWidget::changeEvent(QEvent* event) {
  if (event->type() == QEvent::EnabledChange) TellWhetherOpaque();
  QWidget::changeEvent(event);
}

// ---- focus ----

void DrawingWidget::focusInEvent(QFocusEvent* event) {
  ShowRing(event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason);
}

void DrawingWidget::focusOutEvent(QFocusEvent* /*event*/) {
  ShowRing(false);
}

void DrawingWidget::ShowRing(bool ringed) {
  if (std::exchange(ringed_, ringed) != ringed) update();
}

// The ring is around what is seen of the picture, so it does not move with it.
void DrawingWidget::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  if (ringed_) update();
}

// ---- marks ----

std::vector<DrawingWidget::Mark> DrawingWidget::MarksOf(const std::vector<DrawItem>& items) {
  std::vector<Mark> marks;
  for (const DrawItem& item : items) {
    Mark mark;
    mark.Kind = item.Kind;
    mark.Ink = look::Of(item.Ink);
    mark.Fill = look::Of(item.Fill);
    const bool one = item.Kind == DrawItem::What::Words;
    if (item.Points.size() < (one ? 2U : 4U)) continue;
    if (item.Kind == DrawItem::What::Polyline) {
      AddPolyline(item, mark, marks);
      continue;
    }
    mark.Points = PointsOf(item);
    mark.Reach = ReachOf(mark.Points);
    if (one) PlaceWords(item, mark);
    if (item.Kind == DrawItem::What::Picture) mark.Picture = item.Content;
    marks.push_back(std::move(mark));
  }
  return marks;
}

void DrawingWidget::AddPolyline(const DrawItem& item, const Mark& plain, std::vector<Mark>& marks) {
  const QPolygonF line = Thinned(item.Points);
  for (qsizetype first = 0; first == 0 || first < line.size() - 1; first += kPiecePoints) {
    Mark piece = plain;
    piece.Points = line.mid(first, kPiecePoints + 1);  // ends where the next one begins
    piece.Reach = ReachOf(piece.Points);
    marks.push_back(std::move(piece));
  }
}

void DrawingWidget::PlaceWords(const DrawItem& item, Mark& mark) {
  mark.Words = look::FromText(item.Content);
  mark.FontSize = item.FontSize;
  const QFontMetricsF metrics(look::FontOf(item.FontSize, false));
  const double width = metrics.horizontalAdvance(mark.Words);
  const double before = item.Align == Alignment::Left    ? 0
                        : item.Align == Alignment::Right ? width
                                                         : width / 2;
  const QPointF corner = mark.Points.first() - QPointF(before, 0);
  mark.Points = {corner + QPointF(0, metrics.ascent())};
  mark.Reach =
      QRectF(corner, QSizeF(width, metrics.height())).toAlignedRect().adjusted(-3, 0, 3, 0);
}

// ---- painting ----

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
  if (ringed_) look::DrawFocusRing(painter, visibleRegion().boundingRect());
}

void DrawingWidget::Draw(QPainter& painter, const Mark& mark) {
  QPen pen(mark.Ink, 1);
  pen.setCosmetic(true);
  painter.setPen(mark.Ink.alpha() == 0 ? QPen(Qt::NoPen) : pen);
  painter.setBrush(mark.Fill.alpha() == 0 ? QBrush(Qt::NoBrush) : QBrush(mark.Fill));
  const bool smooth = !Straight(mark.Points);
  painter.setRenderHint(QPainter::Antialiasing, smooth);
  switch (mark.Kind) {
    case DrawItem::What::Line:
    case DrawItem::What::Polyline:
      painter.drawPolyline(smooth ? mark.Points.translated(0.5, 0.5) : mark.Points);
      return;
    case DrawItem::What::Rectangle:
      painter.fillRect(QRect(mark.Points[0].toPoint(), mark.Points[1].toPoint() - QPoint(1, 1)),
                       mark.Ink);
      return;
    case DrawItem::What::Polygon:
      painter.drawPolygon(mark.Points.translated(0.5, 0.5));
      return;
    case DrawItem::What::Words:
      painter.setFont(look::FontOf(mark.FontSize, false));
      painter.drawText(mark.Points.first(), mark.Words);
      return;
    case DrawItem::What::Picture: {
      const QRect place = QRectF(mark.Points[0], mark.Points[1]).toAlignedRect();
      painter.drawPixmap(place.topLeft(),
                         pictures_.Get(mark.Picture, place.size(), devicePixelRatioF()));
      return;
    }
  }
}

}  // namespace vantora
