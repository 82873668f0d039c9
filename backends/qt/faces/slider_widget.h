// A slider that takes the value at the position of the mouse; its whole length is its range. The
// minimum is at the left, at the top or at the bottom. When zero lies within the range, the lit
// part begins there. A fader's knob moves with the mouse from where it was gripped.
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
  double KnobAt(int value, double length) const;  // its centre
  void PaintGroove(QPainter& painter, double length, double thick) const;

  SliderScale scale_;
  bool fader_ = false;  // a mixer fader, moved by its knob
  int track_ = 0;       // of a fader, in twips
  int grip_ = 0;        // pixels between the knob's upper edge and the mouse
};

}  // namespace vantora
