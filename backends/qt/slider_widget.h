// A slider whose whole length is its range: the mouse sets the value of the place where it is.
// The minimum is on the left, or at the top.
#pragma once

#include <QSlider>

namespace vantora {

class SliderWidget final : public QSlider {
 public:
  explicit SliderWidget(QWidget* parent);
  void SetUpright(bool upright);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  int ValueAt(const QPointF& place) const;
};

}  // namespace vantora
