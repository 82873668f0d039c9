// Draws the words of labels and of table headers.
//
// Reading the letters from the font files takes a tenth of a start. The words drawn by the last
// start are shown instead, as long as the fonts are unchanged.
#pragma once

#include <QColor>
#include <QFont>
#include <QRect>
#include <QString>

class QPainter;

namespace vantora {

struct WordsLook {
  QString Words;  // a line that is too long is elided at its end
  QFont Font;     // at full size
  QColor Ink;
  QRect Place;  // pixels
  Qt::Alignment Align = Qt::AlignLeft | Qt::AlignTop;
  bool Wrap = false;
  double Scale = 1;      // lines break and end as at full size
  bool OwnFont = false;  // a font of the user's choice: lines are not elided
};

void DrawWords(QPainter& painter, const WordsLook& look);

}  // namespace vantora
