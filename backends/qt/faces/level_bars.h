// Rows of small lamps, green, amber and red, that show the level of the left channel, the right
// channel or both. They are vertical when the widget is higher than wide. A screen reader finds a
// bar whose value is the louder channel, in percent of the row. Levels change too often to be
// announced, so it gets the level when it asks.
#pragma once

#include "backends/qt/faces/spoken.h"

#include "platform/controls.h"

#include <QWidget>

namespace vantora {

class LevelBars final : public QWidget, public Spoken {
 public:
  explicit LevelBars(QWidget* parent);
  // Peaks from 0 to 32767. Repaints only lamps that change.
  void Set(bool active, int left, int right, Ears shown, int mark = 0);

  int Percent() const;  // of the row, for the louder of the channels shown

  // How many of `lamps` are lit at a peak. The range from the first to the last is 60 decibels.
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
  int mark_ = 0;  // a marked peak; 0: none
  Ears shown_ = Ears::Both;
};

}  // namespace vantora
