// The words of labels and of the heads of tables.
//
// To read the letters of a start from their files takes a tenth of it. What the start before has
// drawn is shown instead, as long as the fonts are known to be the same.
#pragma once

#include "backends/qt/pictures/pictures.h"

#include <QColor>
#include <QFont>
#include <QString>

namespace vantora {

struct WordsLook {
  QString Words;  // a line that is too long loses its end
  QFont Font;     // of full size
  QColor Ink;
  QRect Place;  // pixels
  Qt::Alignment Align = Qt::AlignLeft | Qt::AlignTop;
  bool Wrap = false;
  double Scale = 1;      // of the words; they break and end where they do at full size
  bool OwnFont = false;  // one of the user's: no line loses its end, and none is kept as a picture
};

void DrawWords(QPainter& painter, Pictures& pictures, const WordsLook& look, double density);

}  // namespace vantora
