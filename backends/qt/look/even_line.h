// Thin lines on screens with a scale like 1.5.
#pragma once

#include <QRectF>

class QPainter;

namespace vantora::look {

// At such a scale a line of one pixel would be one or two of the screen's pixels thick, depending
// on its place. Returns the line with the same thickness everywhere.
QRectF EvenLine(const QPainter& painter, const QRectF& line);

}  // namespace vantora::look
