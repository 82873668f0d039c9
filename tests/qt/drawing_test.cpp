#include <gtest/gtest.h>

#include "backends/qt/drawing_widget.h"
#include "backends/qt/qt_event_loop.h"
#include "tests/backends/full_form.h"

#include <QImage>
#include <QPainter>

#include <cmath>
#include <random>

namespace vantora {
namespace {

DrawItem Item(DrawItem::What kind, std::vector<int> points) {
  DrawItem item;
  item.Kind = kind;
  item.Points = std::move(points);
  item.Ink = Rgb(255, 255, 85);
  return item;
}

QImage Seen(QWidget& widget, const QRect& part) {
  QImage image(part.size(), QImage::Format_RGB32);
  image.fill(Qt::red);
  widget.render(&image, QPoint(), part, QWidget::RenderFlags());
  return image;
}

// A widget with what its picture box shows.
struct Drawn {
  Drawn(int width, int height, std::vector<DrawItem> items) {
    widget.resize(width, height);
    box.BackColor = Rgb(0, 0, 64);
    for (DrawItem& item : items) box.Draw(std::move(item));
    widget.Set(box);
  }

  QtEventLoop loop{"", {}, 20};
  TestForm form{loop};
  PictureBox box{form, L"picWave"};
  Pictures pictures{{}, {}};
  DrawingWidget widget{pictures, nullptr};
};

// A trace with many points to a pixel, through all that can go wrong: pieces, columns, parts that
// are painted alone.
TEST(Drawing, AnyPartOfALongTraceShowsEveryPointAndLooksAsInTheWhole) {
  constexpr int kPixels = 900, kHeight = 100;
  std::mt19937 chance(11);
  DrawItem trace = Item(DrawItem::What::Polyline, {});
  std::vector<std::pair<int, int>> points;  // pixels
  for (int i = 0; i < kPixels * 15; ++i) {
    points.emplace_back(i / 15, static_cast<int>(chance() % 5 == 0 ? chance() % kHeight : 50));
    trace.Points.push_back(points.back().first * 15);
    trace.Points.push_back(points.back().second * 15);
  }
  Drawn shown(kPixels, kHeight,
              {std::move(trace), Item(DrawItem::What::Line, {0, 1500 - 15, 13500, 1500 - 15})});
  const QImage whole = Seen(shown.widget, shown.widget.rect());
  for (const auto& [x, y] : points) {
    ASSERT_GT(qRed(whole.pixel(x, y)), 150) << "the point at " << x << "," << y << " is missing";
  }
  for (int x = 0; x < kPixels; ++x) {
    EXPECT_EQ(whole.pixel(x, kHeight - 1), QColor(255, 255, 85).rgb()) << "a line on its pixels";
  }
  for (int i = 0; i < 60; ++i) {
    const QRect part(static_cast<int>(chance() % 850), static_cast<int>(chance() % 80),
                     1 + static_cast<int>(chance() % 50), 1 + static_cast<int>(chance() % 20));
    const QImage alone = Seen(shown.widget, part);
    for (int y = 0; y < part.height(); ++y) {
      for (int x = 0; x < part.width(); ++x) {
        const int one = qRed(alone.pixel(x, y)),
                  other = qRed(whole.pixel(part.x() + x, part.y() + y));
        ASSERT_NEAR(one, other, 5) << part.x() + x << "," << part.y() + y;
      }
    }
  }
}

// A steep line has no points in most of the columns that it crosses.
TEST(Drawing, ALineBetweenTwoPointsIsStraight) {
  constexpr int kWidth = 20, kHeight = 200;
  Drawn shown(kWidth, kHeight,
              {Item(DrawItem::What::Polyline, {0, 0, (kWidth - 1) * 15, (kHeight - 1) * 15})});
  const QImage whole = Seen(shown.widget, shown.widget.rect());
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      const double away = std::abs(x - y * (kWidth - 1.0) / (kHeight - 1));
      const int lit = qRed(whole.pixel(x, y));
      EXPECT_TRUE(away < 0.1 ? lit > 150 : away < 2 || lit == 0) << x << "," << y << ": " << lit;
    }
  }
}

}  // namespace
}  // namespace vantora
