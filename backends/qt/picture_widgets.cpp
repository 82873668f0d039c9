#include "backends/qt/picture_widgets.h"

#include "backends/qt/look.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace vantora {

namespace {

constexpr double kPixelsPerTwip = 1.0 / 15;
constexpr double kDimmed = 0.38;

void Paint(QPainter& painter, Pictures& pictures, const ShownPicture& shown, const QWidget& on) {
  const double density = on.devicePixelRatioF();
  const QRect all = on.rect();
  if (!shown.Picture.empty()) {
    painter.drawPixmap(0, 0, pictures.Get(shown.Picture, all.size(), density, shown.Part));
  }
  if (shown.Icon.empty()) return;
  QSize size = pictures.NaturalSize(shown.Icon);
  if (size.isEmpty()) return;  // a missing icon leaves the button's own picture readable
  if (size.width() > all.width() || size.height() > all.height()) {
    size.scale(all.size(), Qt::KeepAspectRatio);
  }
  QRect place(QPoint(), size);
  place.moveCenter(all.center());
  painter.drawPixmap(place.topLeft(), pictures.Get(shown.Icon, size, density));
}

bool Same(const DrawItem& a, const DrawItem& b) {
  return a.Kind == b.Kind && a.Ink == b.Ink && a.FontSize == b.FontSize && a.Points == b.Points &&
         a.Content == b.Content;
}

QPointF At(const DrawItem& item, std::size_t place) {
  return QPointF(item.Points[place] * kPixelsPerTwip, item.Points[place + 1] * kPixelsPerTwip);
}

}  // namespace

void PictureWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (!isEnabled()) painter.setOpacity(kDimmed);
  Paint(painter, pictures_, Shown, *this);
}

ButtonWidget::ButtonWidget(Pictures& pictures, QWidget* parent)
    : QPushButton(parent), pictures_(pictures) {
  setFocusPolicy(Qt::TabFocus);
}

void ButtonWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (!isEnabled()) painter.setOpacity(kDimmed);
  if (Held) painter.translate(1, 1);
  if (Shown.Picture.empty() && Shown.Icon.empty()) {
    PaintPlain(painter);
  } else {
    Paint(painter, pictures_, Shown, *this);
  }
  if (Held) painter.translate(-1, -1);
  painter.setOpacity(1);
  if (isEnabled() && underMouse() && !Held) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 255, 255, 22));
    painter.drawRoundedRect(rect(), 4, 4);
  }
  if (hasFocus()) look::DrawFocusRing(painter, rect());
}

void ButtonWidget::PaintPlain(QPainter& painter) {
  look::DrawPanel(painter, rect(), Held);
  painter.setPen(Ink);
  const QRect inner = rect().adjusted(4, 0, -4, 0);
  painter.drawText(inner, Qt::AlignCenter,
                   painter.fontMetrics().elidedText(Words, Qt::ElideRight, inner.width()));
}

void ButtonWidget::enterEvent(QEnterEvent* /*event*/) {
  update();
}

void ButtonWidget::leaveEvent(QEvent* /*event*/) {
  update();
}

void DrawingWidget::Set(const Text& picture, const QColor& ground,
                        const std::vector<DrawItem>& items) {
  if (picture == picture_ && ground == ground_ &&
      std::equal(items.begin(), items.end(), items_.begin(), items_.end(), Same)) {
    return;
  }
  picture_ = picture;
  ground_ = ground;
  items_ = items;
  drawn_ = QPixmap();
  update();
}

QPixmap DrawingWidget::Drawn() {
  const double density = devicePixelRatioF();
  QPixmap picture;
  if (!picture_.empty()) picture = pictures_.Get(picture_, size(), density);
  if (items_.empty() && !picture.isNull() && !picture.hasAlpha()) return picture;
  QPixmap drawn(size() * density);
  drawn.setDevicePixelRatio(density);
  drawn.fill(ground_);
  QPainter painter(&drawn);
  painter.setRenderHint(QPainter::Antialiasing);
  if (!picture.isNull()) painter.drawPixmap(0, 0, picture);
  for (const DrawItem& item : items_) Draw(painter, item);
  return drawn;
}

void DrawingWidget::paintEvent(QPaintEvent* /*event*/) {
  if (drawn_.size() != size() * devicePixelRatioF()) drawn_ = Drawn();
  QPainter painter(this);
  if (!isEnabled()) painter.setOpacity(kDimmed);
  painter.drawPixmap(0, 0, drawn_);
}

void DrawingWidget::Draw(QPainter& painter, const DrawItem& item) {
  const std::size_t numbers = item.Points.size();
  const QColor ink = look::Of(item.Ink);
  painter.setPen(QPen(ink, 1));
  painter.setBrush(Qt::NoBrush);
  switch (item.Kind) {
    case DrawItem::What::Line:
      if (numbers >= 4) painter.drawLine(At(item, 0), At(item, 2));
      return;
    case DrawItem::What::Polyline: {
      QPolygonF line;
      for (std::size_t i = 0; i + 1 < numbers; i += 2) line << At(item, i);
      painter.drawPolyline(line);
      return;
    }
    case DrawItem::What::Rectangle:
      if (numbers >= 4) painter.fillRect(QRectF(At(item, 0), At(item, 2)), ink);
      return;
    case DrawItem::What::Words: {
      if (numbers < 2) return;
      painter.setFont(look::FontOf(item.FontSize, false));
      const QPointF place = At(item, 0) + QPointF(0, painter.fontMetrics().ascent());
      painter.drawText(place, look::FromText(item.Content));
      return;
    }
    case DrawItem::What::Polygon: {
      if (item.Fill != kTransparent) painter.setBrush(look::Of(item.Fill));
      if (item.Ink == kTransparent) painter.setPen(Qt::NoPen);
      QPolygonF area;
      for (std::size_t i = 0; i + 1 < numbers; i += 2) area << At(item, i);
      painter.drawPolygon(area);
      return;
    }
    case DrawItem::What::Picture: {
      if (numbers < 4) return;
      const QRect place = QRectF(At(item, 0), At(item, 2)).toAlignedRect();
      painter.drawPixmap(place.topLeft(),
                         pictures_.Get(item.Content, place.size(), devicePixelRatioF()));
      return;
    }
  }
}

}  // namespace vantora
