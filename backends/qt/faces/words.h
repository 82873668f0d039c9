// The words of labels and of the heads of tables.
#pragma once

#include <QColor>
#include <QFont>
#include <QRect>
#include <QString>

class QPainter;

namespace vantora {

struct WordsLook {
  QString Words;  // a line that is too long loses its end
  QFont Font;     // of full size
  QColor Ink;
  QRect Place;  // pixels
  Qt::Alignment Align = Qt::AlignLeft | Qt::AlignTop;
  bool Wrap = false;
  double Scale = 1;      // of the words; they break and end where they do at full size
  bool OwnFont = false;  // one of the user's: no line loses its end
};

void DrawWords(QPainter& painter, const WordsLook& look);

}  // namespace vantora
