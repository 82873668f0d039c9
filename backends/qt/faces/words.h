// Draws the words of labels and of table headers.
//
// Reading the letters from the font files takes a tenth of a start. The words drawn by the last
// start are shown instead, as long as the fonts are unchanged.
#pragma once

#include <QColor>
#include <QFont>
#include <QRect>
#include <QString>

class QFontMetrics;
class QPainter;

namespace vantora {

struct WordsLook {
  QString Words;  // a line that is too long is elided
  QFont Font;     // at full size
  QColor Ink;
  QRect Place;  // pixels
  Qt::Alignment Align = Qt::AlignLeft | Qt::AlignTop;
  bool Wrap = false;
  double Scale = 1;      // lines break and end as at full size
  bool OwnFont = false;  // a font of the user's choice: lines are not elided
};

// Shortens a line that is wider than `width` pixels. A path loses folders in its middle, because
// its beginning and the name of the file matter most. Other texts lose their end.
QString Shortened(const QString& line, const QFontMetrics& metrics, int width);

void DrawWords(QPainter& painter, const WordsLook& look);

}  // namespace vantora
