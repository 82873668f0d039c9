#include <gtest/gtest.h>

#include "backends/qt/desktop/qt_app.h"
#include "backends/qt/look/look.h"
#include "backends/qt/words.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cstdlib>

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

// The same through what starts keep; there is no folder to keep it in.
QImage Shown(const QString& words) {
  Pictures pictures{{}, {}};
  QImage image(200, 40, QImage::Format_RGB32);
  image.fill(QColor(40, 80, 120));
  QPainter painter(&image);
  DrawWords(painter, pictures, {words, look::FontOf(14, true), Qt::yellow, image.rect()}, 1);
  return image;
}

int GreatestDifference(const QImage& one, const QImage& other) {
  int greatest = 0;
  for (qsizetype i = 0; i < one.sizeInBytes(); ++i) {
    greatest = std::max(greatest, std::abs(one.constBits()[i] - other.constBits()[i]));
  }
  return greatest;
}

// A process of its own begins with the one family; among other tests all fonts may be there before.
TEST(Fonts, WordsStayAsTheyWereDrawnFirstAndOtherScriptsCome) {
  const QString spanish = QStringLiteral("Añadir canción: ¿qué pingüino?");
  const QString armenian(QChar(0x0541)), nobodys(QChar(0x0378));
  const QImage small = Drawn(spanish, 9, false), large = Drawn(spanish, 14, true);
  EXPECT_NE(small, Drawn(QString(), 9, false));
  const QImage kept = Shown(spanish);
  Drawn(armenian, 9, false);  // the toolkit remembers that nothing was found

  QtApp::AwaitFonts();
  EXPECT_EQ(Drawn(spanish, 9, false), small);
  EXPECT_EQ(Drawn(spanish, 14, true), large);
  EXPECT_EQ(QtApp::StampOfStartFonts(), 0);
  EXPECT_NE(Shown(spanish), Shown(QString()));
  EXPECT_LE(GreatestDifference(Shown(spanish), kept), 2) << "words move when the fonts come";
  EXPECT_NE(Drawn(armenian, 9, false), Drawn(nobodys, 9, false));
}

}  // namespace
}  // namespace vantora
