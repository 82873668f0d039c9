// Rows of small lamps, green, amber and red: what is heard on the left and on the right, or one of
// them alone. They stand upright where there is more height than width.
#pragma once

#include "platform/controls.h"

#include <QWidget>

namespace vantora {

class LevelBars final : public QWidget {
 public:
  using QWidget::QWidget;
  // Peaks from 0 to 32767; nothing new costs nothing.
  void Set(bool active, int left, int right, Ears shown, int mark = 0);

  // How many of `lamps` are lit at a peak; 60 decibels lie between the first and the last.
  static int Lit(int peak, int lamps);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void PaintRow(QPainter& painter, const QRect& row, int peak) const;

  bool active_ = false;
  int left_ = 0, right_ = 0;
  int mark_ = 0;  // a peak that is marked, 0 for none
  Ears shown_ = Ears::Both;
};

}  // namespace vantora
