#include "backends/qt/faces/level_bars.h"

#include "backends/qt/look/look.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace vantora {

namespace {

constexpr int kLampPixels = 7;
constexpr double kRangeDecibels = 60, kFullPeak = 32767;

QColor LampColour(double share) {
  if (share > 0.9) return QColor(255, 64, 56);
  return share > 0.75 ? look::Of(look::kAmber) : QColor(70, 214, 96);
}

// The share of a row that is lit at a peak.
double ShareOf(int peak) {
  if (peak <= 0) return 0;
  const double decibels = 20 * std::log10(std::min<double>(peak, kFullPeak) / kFullPeak);
  return std::clamp(1 + decibels / kRangeDecibels, 0.0, 1.0);
}

int Lit(double share, int lamps) {
  return static_cast<int>(std::lround(share * lamps));
}

int Lamps(const QRect& row) {
  return std::max(1, row.width() / kLampPixels);
}

int LampPlace(const QRect& row, int lamp) {
  return row.left() + lamp * row.width() / Lamps(row);
}

}  // namespace

LevelBars::LevelBars(QWidget* parent) : QWidget(parent) {
  Say(*this, {QAccessible::ProgressBar, 0});
  setAttribute(Qt::WA_OpaquePaintEvent);  // avoids repainting the widgets below with each level
}

int LevelBars::Percent() const {
  const double left = shown_ == Ears::Right ? 0 : left_, right = shown_ == Ears::Left ? 0 : right_;
  return active_ ? Lit(std::max(left, right), 100) : 0;
}

void LevelBars::Set(bool active, int leftPeak, int rightPeak, Ears shown, int markedPeak) {
  const double left = ShareOf(leftPeak), right = ShareOf(rightPeak);
  const double mark = markedPeak > 0 ? ShareOf(markedPeak) : kNoMark;
  if (active == active_ && left == left_ && right == right_ && shown == shown_ && mark == mark_) {
    return;
  }
  const bool moved = active && active_ && shown == shown_ && mark == mark_;
  const QRect lamps = moved ? Between(left, right) : rect();
  mark_ = mark;
  shown_ = shown;
  active_ = active;
  left_ = left;
  right_ = right;
  SayPercent(Percent());
  if (!lamps.isEmpty()) update(lamps);
}

// The area in which lamps change when these shares replace the current ones.
QRect LevelBars::Between(double left, double right) const {
  const QRect row = Lying();
  const int lamps = Lamps(row);
  const auto changed = [&](Ears unseen, double before, double now) {
    if (shown_ == unseen) return QRect();
    const int a = Lit(before, lamps), b = Lit(now, lamps);
    const int from = LampPlace(row, std::min(a, b)), to = LampPlace(row, std::max(a, b));
    return Tall() ? QRect(0, height() - to, width(), to - from)
                  : QRect(from, 0, to - from, height());
  };
  return changed(Ears::Right, left_, left) | changed(Ears::Left, right_, right);
}

bool LevelBars::Tall() const {
  return height() > width();
}

// The meter's area as if it were horizontal. A vertical meter is drawn rotated.
QRect LevelBars::Lying() const {
  // A narrow meter has a narrower margin.
  const int margin = std::min(3, std::min(width(), height()) * 3 / 10);
  const QSize size = Tall() ? this->size().transposed() : this->size();
  return QRect(QPoint(), size).adjusted(margin, margin, -margin, -margin);
}

void LevelBars::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.fillRect(event->rect(), QColor(12, 14, 24));
  if (Tall()) {
    painter.translate(0, height());
    painter.rotate(-90);
  }
  const QRect lying = Lying(), dirty = painter.transform().inverted().mapRect(event->rect());
  if (shown_ != Ears::Both) {
    return PaintRow(painter, lying, dirty, shown_ == Ears::Left ? left_ : right_);
  }
  const int gap = std::min(2, lying.height() / 4);
  const int half = (lying.height() - gap) / 2;
  PaintRow(painter, QRect(lying.left(), lying.top(), lying.width(), half), dirty, left_);
  PaintRow(painter, QRect(lying.left(), lying.top() + half + gap, lying.width(), half), dirty,
           right_);
}

void LevelBars::PaintRow(QPainter& painter, const QRect& row, const QRect& dirty,
                         double share) const {
  const int lamps = Lamps(row);
  const int lit = active_ ? Lit(share, lamps) : 0;
  for (int i = 0; i < lamps; ++i) {
    const QRect lamp(LampPlace(row, i), row.top(), kLampPixels - 2, row.height());
    if (!lamp.intersects(dirty)) continue;
    QColor colour = LampColour(static_cast<double>(i) / lamps);
    if (i >= lit) colour = colour.darker(active_ ? 420 : 620);
    painter.fillRect(lamp, colour);
  }
  if (mark_ == kNoMark) return;
  const int place = Lit(mark_, row.width());
  painter.fillRect(row.left() + std::min(place, row.width() - 2), row.top() - 2, 2,
                   row.height() + 4, QColor(255, 181, 69));
}

}  // namespace vantora
