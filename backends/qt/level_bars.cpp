#include "backends/qt/level_bars.h"

#include "backends/qt/look.h"

#include <QAccessibleWidget>
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

// Levels change too often to be announced; they are read when the reader asks.
class SpokenLevel final : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
  explicit SpokenLevel(LevelBars* bars) : QAccessibleWidget(bars, QAccessible::ProgressBar) {}

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type != QAccessible::ValueInterface) return QAccessibleWidget::interface_cast(type);
    return static_cast<QAccessibleValueInterface*>(this);
  }
  QString text(QAccessible::Text wanted) const override {
    if (wanted != QAccessible::Value) return QAccessibleWidget::text(wanted);
    return QString::number(Percent()) + QStringLiteral(" %");
  }
  QVariant currentValue() const override { return Percent(); }
  void setCurrentValue(const QVariant& /*value*/) override {}
  QVariant minimumValue() const override { return 0; }
  QVariant maximumValue() const override { return 100; }
  QVariant minimumStepSize() const override { return 1; }

 private:
  int Percent() const { return static_cast<const LevelBars*>(widget())->Percent(); }
};

QAccessibleInterface* Speak(const QString& /*kind*/, QObject* object) {
  auto* bars = dynamic_cast<LevelBars*>(object);
  return bars == nullptr ? nullptr : new SpokenLevel(bars);
}

}  // namespace

LevelBars::LevelBars(QWidget* parent) : QWidget(parent) {
  QAccessible::installFactory(Speak);  // once is enough, and more do no harm
}

int LevelBars::Percent() const {
  const int left = shown_ == Ears::Right ? 0 : left_, right = shown_ == Ears::Left ? 0 : right_;
  return active_ ? Lit(std::max(left, right), 100) : 0;
}

int LevelBars::Lit(int peak, int lamps) {
  if (peak <= 0) return 0;
  const double decibels = 20 * std::log10(std::min<double>(peak, kFullPeak) / kFullPeak);
  const double share = std::clamp(1 + decibels / kRangeDecibels, 0.0, 1.0);
  return static_cast<int>(std::lround(share * lamps));
}

void LevelBars::Set(bool active, int left, int right, Ears shown, int mark) {
  if (active == active_ && left == left_ && right == right_ && shown == shown_ && mark == mark_) {
    return;
  }
  mark_ = mark;
  shown_ = shown;
  active_ = active;
  left_ = left;
  right_ = right;
  update();
}

void LevelBars::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), QColor(12, 14, 24));
  const int margin = std::min(3, std::min(width(), height()) * 3 / 10);  // narrow in a narrow one
  const QRect inner = rect().adjusted(margin, margin, -margin, -margin);
  // A tall meter is a wide one on its side.
  const bool tall = height() > width();
  if (tall) {
    painter.translate(0, height());
    painter.rotate(-90);
  }
  const QRect lying = tall ? QRect(margin, margin, inner.height(), inner.width()) : inner;
  if (shown_ != Ears::Both) {
    return PaintRow(painter, lying, shown_ == Ears::Left ? left_ : right_);
  }
  const int gap = std::min(2, lying.height() / 4);
  const int half = (lying.height() - gap) / 2;
  PaintRow(painter, QRect(lying.left(), lying.top(), lying.width(), half), left_);
  PaintRow(painter, QRect(lying.left(), lying.top() + half + gap, lying.width(), half), right_);
}

void LevelBars::PaintRow(QPainter& painter, const QRect& row, int peak) const {
  const int lamps = std::max(1, row.width() / kLampPixels);
  const int lit = active_ ? Lit(peak, lamps) : 0;
  for (int i = 0; i < lamps; ++i) {
    QColor colour = LampColour(static_cast<double>(i) / lamps);
    if (i >= lit) colour = colour.darker(active_ ? 420 : 620);
    painter.fillRect(row.left() + i * row.width() / lamps, row.top(), kLampPixels - 2, row.height(),
                     colour);
  }
  if (mark_ <= 0) return;
  const int place = Lit(mark_, row.width());
  painter.fillRect(row.left() + std::min(place, row.width() - 2), row.top() - 2, 2,
                   row.height() + 4, QColor(255, 181, 69));
}

}  // namespace vantora
