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
  void Set(bool active, int leftPeak, int rightPeak, Ears shown, int markedPeak = 0);

  int Percent() const;  // of the row, for the louder of the channels shown

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool Tall() const;
  QRect Lying() const;
  QRect Between(double left, double right) const;
  void PaintRow(QPainter& painter, const QRect& row, const QRect& dirty, double share) const;

  bool active_ = false;
  // Shares of the row, of which the last 60 decibels are shown.
  double left_ = 0, right_ = 0;
  static constexpr double kNoMark = -1;
  double mark_ = kNoMark;
  Ears shown_ = Ears::Both;
};

}  // namespace vantora
