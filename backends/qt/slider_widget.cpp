#include "backends/qt/slider_widget.h"

#include "backends/qt/look.h"

#include <QKeyEvent>
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

void SliderWidget::Set(const Slider& slider) {
  const bool downwards = slider.Vertical && !slider.Upwards;
  scale_ = SliderScale::Of(slider);
  setOrientation(slider.Vertical ? Qt::Vertical : Qt::Horizontal);
  setInvertedAppearance(downwards);
  setInvertedControls(downwards);
  setRange(slider.Min, slider.Max);
  setPageStep(std::max(1, (slider.Max - slider.Min) / 10));  // of the wheel
  setValue(slider.Value);
  update();
}

int SliderWidget::ValueAt(const QPointF& place) const {
  const bool upright = orientation() == Qt::Vertical;
  double share = upright ? place.y() / height() : place.x() / width();
  if (upright && !invertedAppearance()) share = 1 - share;
  return scale_.ValueAt(share);
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

void SliderWidget::keyPressEvent(QKeyEvent* event) {
  const bool up = !invertedControls();
  switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
      return setValue(scale_.Stepped(value(), event->key() == Qt::Key_Right, false));
    case Qt::Key_Up:
    case Qt::Key_Down:
      return setValue(scale_.Stepped(value(), (event->key() == Qt::Key_Up) == up, false));
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
      return setValue(scale_.Stepped(value(), (event->key() == Qt::Key_PageUp) == up, true));
    default:
      QSlider::keyPressEvent(event);
  }
}

double SliderWidget::KnobAt(int value, double length) const {
  return kKnobPixels / 2.0 + (length - kKnobPixels) * scale_.ShareOf(value);
}

void SliderWidget::PaintGroove(QPainter& painter, double length, double thick) const {
  const QRectF groove(0.5, (thick - kGroovePixels) / 2, length - 1, kGroovePixels);
  painter.setPen(QPen(look::Of(look::kEdge), 1));
  painter.setBrush(QColor(34, 38, 60));
  painter.drawRoundedRect(groove, 2, 2);
  const bool zero = minimum() < 0 && maximum() > 0;
  const double from = zero ? KnobAt(0, length) : groove.left();
  const double to = KnobAt(value(), length);
  painter.setPen(Qt::NoPen);
  painter.setBrush(look::Of(look::kAmber));
  painter.drawRoundedRect(
      QRectF(std::min(from, to), groove.top(), std::abs(to - from), groove.height()), 2, 2);
  if (!zero) return;
  const double reach = std::min(thick / 2 - 1, 9.0);
  for (const double side : {-1.0, 1.0}) {
    painter.fillRect(QRectF(std::round(from), thick / 2 + side * reach - 1.5, 1, 3),
                     look::Of(look::kQuiet));
  }
}

void SliderWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  if (!isEnabled()) painter.setOpacity(0.4);
  const bool upright = orientation() == Qt::Vertical;
  if (upright) {
    // Painted lying, from left to right, and set upright with its left end where the minimum is.
    const bool down = invertedAppearance();
    painter.translate(down ? width() : 0, down ? 0 : height());
    painter.rotate(down ? 90 : -90);
  }
  const double length = upright ? height() : width(), thick = upright ? width() : height();
  PaintGroove(painter, length, thick);
  const double tall = std::min(thick - 2, 22.0);
  const QRect handle =
      QRectF(KnobAt(value(), length) - kKnobPixels / 2.0, (thick - tall) / 2, kKnobPixels, tall)
          .toAlignedRect();
  look::DrawPanel(painter, handle, isSliderDown());
  if (hasFocus()) look::DrawFocusRing(painter, handle.adjusted(-1, -1, 1, 1));
}

}  // namespace vantora
