#include "backends/qt/words.h"

#include "backends/qt/desktop/qt_app.h"

#include <QFontMetrics>
#include <QPainter>
#include <QTextOption>

#include <cstdint>

namespace vantora {

namespace {

constexpr char16_t kLastPlainLetter = 0xFF;

// Surely so, by the letters one by one: what that can't decide is decided by setting the whole
// line, which costs more than to draw it.
bool Fits(const QString& line, const QFontMetrics& metrics, int width) {
  int letters = 0;
  for (const QChar letter : line) {
    if (letter.unicode() > kLastPlainLetter) return false;  // more of them may be one sign
    letters += metrics.horizontalAdvance(letter) + 1;       // they may stand a little apart
  }
  return letters <= width;
}

void Draw(QPainter& painter, const WordsLook& look, const QRect& shown) {
  painter.save();
  painter.scale(look.Scale, look.Scale);
  const QRectF place(QPointF(shown.topLeft()) / look.Scale, QSizeF(shown.size()) / look.Scale);
  painter.setFont(look.Font);
  painter.setPen(look.Ink);
  if (look.Wrap) {
    QTextOption option(look.Align);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);  // paths have no blanks
    painter.drawText(place, look.Words, option);
  } else {
    const QFontMetrics metrics = painter.fontMetrics();
    const int width = static_cast<int>(place.width());
    QStringList lines = look.Words.split(u'\n');
    for (QString& line : lines) {
      if (look.OwnFont || Fits(line, metrics, width)) continue;
      line = metrics.elidedText(line, Qt::ElideRight, width);
    }
    painter.drawText(place, static_cast<int>(look.Align) | Qt::TextDontClip, lines.join(u'\n'));
  }
  painter.restore();
}

// All that the picture of the words depends on but the fonts' files.
QString KeyOf(const WordsLook& look, double density) {
  QString key = look.Words;
  for (const auto number :
       {std::int64_t{look.Place.width()}, std::int64_t{look.Place.height()},
        std::int64_t{look.Font.pixelSize()}, std::int64_t{look.Font.bold()},
        std::int64_t{look.Align.toInt()}, std::int64_t{look.Wrap}, std::int64_t{look.Ink.rgba()}}) {
    key += u'|' + QString::number(number);
  }
  return key + u'|' + QString::number(density) + u'|' + QString::number(look.Scale);
}

}  // namespace

void DrawWords(QPainter& painter, Pictures& pictures, const WordsLook& look, double density) {
  if (look.Words.isEmpty() || look.Place.isEmpty()) return;
  const std::int64_t fonts = look.OwnFont ? 0 : QtApp::StampOfStartFonts();
  if (fonts == 0) return Draw(painter, look, look.Place);
  const QPixmap drawn = pictures.Words(
      KeyOf(look, density), fonts, look.Place.size(), density,
      [&look](QPainter& kept) { Draw(kept, look, QRect(QPoint(), look.Place.size())); });
  painter.drawPixmap(look.Place.topLeft(), drawn);
}

}  // namespace vantora
