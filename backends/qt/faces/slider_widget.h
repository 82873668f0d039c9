// A slider whose whole length is its range: the mouse sets the value of the place where it is.
// The minimum is on the left, at the top or at the bottom. Where zero lies within the range, what
// shines begins there. The knob of a fader moves with the mouse that grips it.
#pragma once

#include "platform/fader_knob.h"
#include "platform/slider_scale.h"

#include <QSlider>

class QPainter;

namespace vantora {

class SliderWidget final : public QSlider {
 public:
  explicit SliderWidget(QWidget* parent);
  void Set(const Slider& slider);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  int ValueAt(const QPointF& place) const;
  KnobTravel Travel() const;
  void PaintFader(QPainter& painter) const;
  double Knob() const;                            // its length
  double KnobAt(int value, double length) const;  // its middle
  void PaintGroove(QPainter& painter, double length, double thick) const;

  SliderScale scale_;
  bool fader_ = false;  // gripped at its knob
  int track_ = 0;       // of a fader, in twips
  int grip_ = 0;        // of the knob, below its upper edge; pixels
};

}  // namespace vantora
