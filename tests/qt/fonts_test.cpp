#include <gtest/gtest.h>

#include "backends/qt/desktop/qt_app.h"
#include "backends/qt/look/look.h"

#include <QImage>
#include <QPainter>

namespace vantora {
namespace {

QImage Drawn(const QString& words, int points, bool bold) {
  QImage image(400, 40, QImage::Format_RGB32);
  image.fill(Qt::black);
  QPainter painter(&image);
  painter.setPen(Qt::white);
  painter.setFont(look::FontOf(points, bold));
  painter.drawText(image.rect(), Qt::AlignCenter, words);
  return image;
}

// This test needs a process of its own, which begins with only one font family. In a process with
// other tests, all fonts may be loaded already.
TEST(Fonts, WordsStayAsTheyWereDrawnFirstAndOtherScriptsCome) {
  const QString spanish = QStringLiteral("Añadir canción: ¿qué pingüino?");
  const QString armenian(QChar(0x0541)), nobodys(QChar(0x0378));
  const QImage small = Drawn(spanish, 9, false), large = Drawn(spanish, 14, true);
  EXPECT_NE(small, Drawn(QString(), 9, false));
  Drawn(armenian, 9, false);  // the toolkit stores that it found no font

  QtApp::AwaitFonts();
  EXPECT_EQ(Drawn(spanish, 9, false), small);
  EXPECT_EQ(Drawn(spanish, 14, true), large);
  EXPECT_NE(Drawn(armenian, 9, false), Drawn(nobodys, 9, false));
}

}  // namespace
}  // namespace vantora
