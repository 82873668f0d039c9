// How large a window is shown and where it stands.
#pragma once

#include <QMargins>
#include <QPoint>
#include <QRect>
#include <QSize>

namespace vantora {

struct Fit {
  double Scale = 1;
  QRect Place;  // of the window inside its frame
};

inline QPoint MiddleOf(const QRect& place) {
  return place.topLeft() + QPoint(place.width() / 2, place.height() / 2);
}

// Scales a window of `natural` size down, but never below `least`, until it stands in the room with
// its frame, and puts its middle as near to `middle` as the room lets it. One that is too large all
// the same begins at the upper left corner of the room, so that its title bar can be reached.
Fit FitInto(const QRect& room, const QMargins& frame, const QSize& natural, const QPoint& middle,
            double least);

// Pixels of a screen, whose size the toolkit gives divided by the scale and rounded. Of the numbers
// that come to the same the roundest is the screen's: no screen is 1025 pixels wide.
int ScreenPixels(int divided, double scale);

}  // namespace vantora
