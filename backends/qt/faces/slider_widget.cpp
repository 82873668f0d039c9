#include "backends/qt/faces/slider_widget.h"

#include "backends/qt/look/look.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace vantora {

namespace {

// The length of the knob: a share of the slider's breadth, but at most this many pixels.
constexpr double kKnobPixels = 12, kKnobShare = 0.75;
constexpr int kGroovePixels = 4;

}  // namespace

SliderWidget::SliderWidget(QWidget* parent) : QSlider(Qt::Horizontal, parent) {
  setFocusPolicy(Qt::StrongFocus);
}

void SliderWidget::Set(const Slider& slider) {
  const bool downwards = slider.Vertical && !slider.Upwards;
  scale_ = SliderScale::Of(slider);
  fader_ = dynamic_cast<const FaderKnob*>(&slider) != nullptr;
  track_ = slider.Height;
  setOrientation(slider.Vertical ? Qt::Vertical : Qt::Horizontal);
  setInvertedAppearance(downwards);
  setInvertedControls(downwards);
  setRange(slider.Min, slider.Max);
  setPageStep(std::max(1, (slider.Max - slider.Min) / 10));  // step of the mouse wheel
  setValue(slider.Value);
  update();
}

int SliderWidget::ValueAt(const QPointF& place) const {
  const bool upright = orientation() == Qt::Vertical;
  double share = upright ? place.y() / height() : place.x() / width();
  if (upright && !invertedAppearance()) share = 1 - share;
  return scale_.ValueAt(share);
}

KnobTravel SliderWidget::Travel() const {
  // The knob takes the same share of the track as in the model, also in a scaled window.
  const int knob = track_ > 0 ? height() * FaderKnob::kKnobHeight / track_ : 0;
  return {height(), knob, maximum(), minimum()};
}

void SliderWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return event->ignore();
  setSliderDown(true);
  update();
  if (!fader_) return setValue(ValueAt(event->position()));
  const int y = event->position().toPoint().y();
  grip_ = Travel().GripOf(value(), y);
  if (!Travel().On(value(), y)) setValue(Travel().ValueAt(y - grip_));
}

void SliderWidget::mouseMoveEvent(QMouseEvent* event) {
  if (!isSliderDown()) return;
  const int y = event->position().toPoint().y();
  setValue(fader_ ? Travel().ValueAt(y - grip_) : ValueAt(event->position()));
}

void SliderWidget::mouseReleaseEvent(QMouseEvent* /*event*/) {
  setSliderDown(false);
  update();
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

double SliderWidget::Knob() const {
  return std::min(kKnobPixels, kKnobShare * std::min(width(), height()));
}

double SliderWidget::KnobAt(int value, double length) const {
  return Knob() / 2 + (length - Knob()) * scale_.ShareOf(value);
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

// A knob with a line across, on a groove that is lit up to the knob.
void SliderWidget::PaintFader(QPainter& painter) const {
  const KnobTravel travel = Travel();
  const int top = travel.TopOf(value());
  const double middle = top + travel.Knob / 2.0, centre = width() / 2.0;
  const QRectF groove(centre - kGroovePixels / 2.0, travel.Knob / 2.0, kGroovePixels,
                      height() - travel.Knob);
  painter.setPen(QPen(look::Of(look::kEdge), 1));
  painter.setBrush(QColor(16, 19, 31));
  painter.drawRoundedRect(groove, 2, 2);
  painter.setPen(Qt::NoPen);
  painter.setBrush(look::Of(look::kAmber));
  painter.drawRoundedRect(QRectF(QPointF(groove.left(), middle), groove.bottomRight()), 2, 2);
  const QRect cap(1, top, width() - 2, travel.Knob);
  look::DrawPanel(painter, cap, isSliderDown());
  painter.fillRect(QRectF(cap.left() + 3, middle - 1, cap.width() - 6, 2),
                   look::Of(isEnabled() ? look::kAmber : look::kQuiet));
  if (hasFocus()) look::DrawFocusRing(painter, cap);
}

void SliderWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  if (!isEnabled()) painter.setOpacity(0.4);
  if (fader_) return PaintFader(painter);
  const bool upright = orientation() == Qt::Vertical;
  if (upright) {
    // Painted horizontally and then rotated, with the left end at the minimum.
    const bool down = invertedAppearance();
    painter.translate(down ? width() : 0, down ? 0 : height());
    painter.rotate(down ? 90 : -90);
  }
  const double length = upright ? height() : width(), thick = upright ? width() : height();
  PaintGroove(painter, length, thick);
  const double tall = std::min(thick - 2, 22.0);
  const QRect handle =
      QRectF(KnobAt(value(), length) - Knob() / 2, (thick - tall) / 2, Knob(), tall)
          .toAlignedRect();
  look::DrawPanel(painter, handle, isSliderDown());
  if (hasFocus()) look::DrawFocusRing(painter, handle.adjusted(-1, -1, 1, 1));
}

}  // namespace vantora
