// Rows of small lamps, green, amber and red: what is heard on the left and on the right, or one of
// them alone. They stand upright where there is more height than width. A screen reader finds a bar
// whose value is the loudest side, in percent of the row.
#pragma once

#include "platform/controls.h"

#include <QWidget>

namespace vantora {

class LevelBars final : public QWidget {
 public:
  explicit LevelBars(QWidget* parent);
  // Peaks from 0 to 32767; nothing new costs nothing.
  void Set(bool active, int left, int right, Ears shown, int mark = 0);

  int Percent() const;  // of the row, on the louder of the sides that are shown

  // How many of `lamps` are lit at a peak; 60 decibels lie between the first and the last.
  static int Lit(int peak, int lamps);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool Tall() const;
  QRect Lying() const;
  QRect Between(int left, int right) const;
  void PaintRow(QPainter& painter, const QRect& row, const QRect& dirty, int peak) const;

  bool active_ = false;
  int left_ = 0, right_ = 0;
  int mark_ = 0;  // a peak that is marked, 0 for none
  Ears shown_ = Ears::Both;
};

}  // namespace vantora
