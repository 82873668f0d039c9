#include <gtest/gtest.h>

#include "backends/qt/faces/drawing_widget.h"
#include "backends/qt/look/even_line.h"
#include "backends/qt/loop/qt_event_loop.h"
#include "backends/qt/print/qt_font_book.h"
#include "backends/qt/print/qt_image.h"
#include "tests/backends/full_form.h"

#include "platform/box_device.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QWidget>

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

// A widget that shows a picture box with these items.
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

// The trace has many points per pixel. The widget splits it into pieces, draws it in columns, and
// paints any part alone. None of this may lose or change a point.
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

// The line has two points only, so it has no points in most of the columns that it crosses.
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

// The rectangle around all pixels that differ from the box's background.
QRect Marked(const QImage& image) {
  QRect marked;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (qRed(image.pixel(x, y)) > 100) marked = marked.united(QRect(x, y, 1, 1));
    }
  }
  return marked;
}

// As on paper, the upper left corner of the first letter's cell is at the current place.
TEST(Drawing, WordsOfADeviceAreTurnedAroundTheirBeginningAndScaledWithTheBox) {
  QtFontBook fonts;
  for (const double scale : {1.0, 0.7}) {
    for (const int angle : {0, 900, 2700}) {
      SCOPED_TRACE(testing::Message() << angle << " at " << scale);
      Drawn shown(400, 400, {});
      BoxDevice device(shown.box, fonts);
      device.FontName = L"Liberation Sans";
      device.FontSize = 24;
      device.ForeColor = Rgb(255, 255, 255);
      LogicalFont font = FontInUse(device);
      font.Escapement = angle;
      const FontHandle before = SelectObject(device.hDC(), CreateFontIndirectA(font));
      device.CurrentX = device.CurrentY = 200 * 15;
      const double width = device.TextWidth(L"HHH") / 15 * scale;
      const double ascent = fonts.Measure(font, L"H").Ascent * scale;
      device.Print(L"HHH");
      SelectObject(device.hDC(), before);
      shown.widget.Set(shown.box, scale);
      const QRect ink = Marked(Seen(shown.widget, shown.widget.rect()));
      const int at = static_cast<int>(std::lround(200 * scale));
      const double along = angle == 0 ? ink.width() : ink.height();
      EXPECT_NEAR(along, width, 8);
      const int begins = angle == 0 ? ink.left() : angle == 900 ? ink.bottom() : ink.top();
      const int line = angle == 0 ? ink.bottom() : angle == 900 ? ink.right() : -ink.left() - 1;
      EXPECT_NEAR(begins, at, 5);
      EXPECT_NEAR(line + 1, (angle == 2700 ? -at : at) + ascent, 2);
    }
  }
}

TEST(Drawing, APhotographFillsItsRectangle) {
  QImage half(40, 20, QImage::Format_RGB32);
  half.fill(Qt::blue);
  for (int y = 0; y < 20; ++y) {
    for (int x = 20; x < 40; ++x) half.setPixel(x, y, qRgb(255, 0, 0));
  }
  QByteArray bytes;
  QBuffer buffer(&bytes);
  half.save(&buffer, "bmp");
  DrawItem item = Item(DrawItem::What::Picture, {100 * 15, 50 * 15, 300 * 15, 150 * 15});
  item.Photo = std::make_shared<QtImage>(bytes);
  Drawn shown(400, 200, {std::move(item)});
  const QRect red = Marked(Seen(shown.widget, shown.widget.rect()));
  EXPECT_NEAR(red.left(), 200, 3);
  EXPECT_EQ(red.right(), 299);
  EXPECT_EQ(red.top(), 50);
  EXPECT_EQ(red.bottom(), 149);
}

// At a scale like 1.5 lines at odd and even places would otherwise differ.
TEST(Drawing, LinesOfOnePixelAreEquallyThickAtEveryScale) {
  for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
    QImage image((QSizeF(40, 40) * scale).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    for (int y = 2; y < 20; ++y) {
      image.fill(Qt::black);
      QPainter painter(&image);
      painter.fillRect(look::EvenLine(painter, QRectF(5, y, 10, 1)), Qt::white);
      painter.end();
      const QRect ink = Marked(image);
      EXPECT_EQ(ink.height(), static_cast<int>(scale)) << scale << " at " << y;
      EXPECT_NEAR(ink.top(), y * scale, 0.5);
      EXPECT_NEAR(ink.width(), 10 * scale, 1);
    }
  }
}

// The toolkit clips what a widget draws at whole pixels of the screen.
TEST(Screen, ALineOfOnePixelIsSeenAtEveryPlaceOfAWindow) {
  struct Line : QWidget {
    using QWidget::QWidget;
    void paintEvent(QPaintEvent* /*event*/) override {
      QPainter painter(this);
      painter.fillRect(look::EvenLine(painter, rect()), Qt::white);
    }
  };
  QWidget window;
  window.resize(40, 40);
  window.setPalette(QPalette(Qt::black));
  Line line(&window);
  for (int at = 2; at < 12; ++at) {
    line.setGeometry(at, at, 1, 10);
    const QImage image = window.grab().toImage();
    EXPECT_EQ(Marked(image).width(), std::floor(image.devicePixelRatio())) << at;
  }
}

}  // namespace
}  // namespace vantora
