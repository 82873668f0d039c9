// Computes the size and the position of a window.
#pragma once

#include <QMargins>
#include <QPoint>
#include <QRect>
#include <QSize>

namespace vantora {

struct Fit {
  double Scale = 1;
  QRect Place;  // of the window without its frame
};

inline QPoint MiddleOf(const QRect& place) {
  return place.topLeft() + QPoint(place.width() / 2, place.height() / 2);
}

// Scales a window of `natural` size down, but never below `least`, until it fits into `room` with
// its frame, and centres it as near to `middle` as the room allows. A window that is still too
// large starts at the upper left corner of the room, so that its title bar can be reached.
Fit FitInto(const QRect& room, const QMargins& frame, const QSize& natural, const QPoint& middle,
            double least);

// The size of a screen in pixels. The toolkit returns this size divided by `scale` and rounded, so
// several sizes are possible. This function returns the size with the most factors of 2, since no
// screen is 1025 pixels wide.
int ScreenPixels(int divided, double scale);

}  // namespace vantora
