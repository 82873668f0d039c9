#include "backends/qt/slider_widget.h"

#include "backends/qt/look.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace vantora {

namespace {

constexpr int kKnobPixels = 12, kGroovePixels = 4;

}  // namespace

SliderWidget::SliderWidget(QWidget* parent) : QSlider(Qt::Horizontal, parent) {
  setFocusPolicy(Qt::StrongFocus);
}

void SliderWidget::SetUpright(bool upright) {
  setOrientation(upright ? Qt::Vertical : Qt::Horizontal);
  setInvertedAppearance(upright);
  setInvertedControls(upright);
}

int SliderWidget::ValueAt(const QPointF& place) const {
  const bool upright = orientation() == Qt::Vertical;
  const double share = upright ? place.y() / height() : place.x() / width();
  return minimum() +
         static_cast<int>(std::lround(std::clamp(share, 0.0, 1.0) * (maximum() - minimum())));
}

void SliderWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return event->ignore();
  setSliderDown(true);
  setValue(ValueAt(event->position()));
}

void SliderWidget::mouseMoveEvent(QMouseEvent* event) {
  if (isSliderDown()) setValue(ValueAt(event->position()));
}

void SliderWidget::mouseReleaseEvent(QMouseEvent* /*event*/) {
  setSliderDown(false);
}

void SliderWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  if (!isEnabled()) painter.setOpacity(0.4);
  const bool upright = orientation() == Qt::Vertical;
  if (upright) {
    // Painted lying, from left to right, and set upright with its left end at the top.
    painter.translate(width(), 0);
    painter.rotate(90);
  }
  const double length = upright ? height() : width(), thick = upright ? width() : height();
  const double range = std::max(1, maximum() - minimum());
  const double knob = (length - kKnobPixels) * (value() - minimum()) / range;
  const QRectF groove(0.5, (thick - kGroovePixels) / 2, length - 1, kGroovePixels);
  painter.setPen(QPen(QColor(112, 118, 168), 1));
  painter.setBrush(look::Of(look::kField));
  painter.drawRoundedRect(groove, 2, 2);
  painter.setPen(Qt::NoPen);
  painter.setBrush(look::Of(look::kAmber));
  painter.drawRoundedRect(
      QRectF(groove.left(), groove.top(), knob + kKnobPixels / 2.0, groove.height()), 2, 2);
  const double tall = std::min(thick - 2, 22.0);
  const QRect handle = QRectF(knob, (thick - tall) / 2, kKnobPixels, tall).toAlignedRect();
  look::DrawPanel(painter, handle, isSliderDown());
  if (hasFocus()) look::DrawFocusRing(painter, handle.adjusted(-1, -1, 1, 1));
}

}  // namespace vantora
