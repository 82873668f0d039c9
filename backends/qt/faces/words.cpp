#include "backends/qt/faces/words.h"

#include <QFontMetrics>
#include <QPainter>
#include <QTextOption>

namespace vantora {

namespace {

constexpr char16_t kLastPlainLetter = 0xFF;

// True if the widths of the letters show that the line fits. False is no proof that the line is too
// long: only a layout of the whole line would decide that, and a layout takes longer than drawing.
bool Fits(const QString& line, const QFontMetrics& metrics, int width) {
  int letters = 0;
  for (const QChar letter : line) {
    if (letter.unicode() > kLastPlainLetter) return false;  // several may form one glyph
    letters += metrics.horizontalAdvance(letter) + 1;       // plus a gap
  }
  return letters <= width;
}

}  // namespace

QString Shortened(const QString& line, const QFontMetrics& metrics, int width) {
  const qsizetype root = line.indexOf(QLatin1String(":\\"));
  if (root < 0) return metrics.elidedText(line, Qt::ElideRight, width);
  if (metrics.horizontalAdvance(line) <= width) return line;
  const QString start = line.left(root + 2) + u'…';
  qsizetype folder = line.indexOf(u'\\', root + 2);
  for (; folder >= 0; folder = line.indexOf(u'\\', folder + 1)) {
    QString shorter = start + line.mid(folder);
    if (metrics.horizontalAdvance(shorter) <= width) return shorter;
  }
  const QString file = u'…' + line.mid(line.lastIndexOf(u'\\'));
  return metrics.elidedText(file, Qt::ElideMiddle, width);
}

void DrawWords(QPainter& painter, const WordsLook& look) {
  if (look.Words.isEmpty() || look.Place.isEmpty()) return;
  painter.save();
  painter.scale(look.Scale, look.Scale);
  const QRectF place(QPointF(look.Place.topLeft()) / look.Scale,
                     QSizeF(look.Place.size()) / look.Scale);
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
      line = Shortened(line, metrics, width);
    }
    painter.drawText(place, static_cast<int>(look.Align) | Qt::TextDontClip, lines.join(u'\n'));
  }
  painter.restore();
}

}  // namespace vantora
