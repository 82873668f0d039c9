#include "backends/qt/windows/fit.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace vantora {

Fit FitInto(const QRect& room, const QMargins& frame, const QSize& natural, const QPoint& middle,
            double least) {
  Fit fit;
  if (natural.isEmpty()) return fit;
  const QRect inside = room.marginsRemoved(frame);
  const double most =
      std::min(1.0 * inside.width() / natural.width(), 1.0 * inside.height() / natural.height());
  fit.Scale = std::clamp(most, std::min(least, 1.0), 1.0);
  const auto scaled = [&fit](int pixels) { return static_cast<int>(pixels * fit.Scale); };
  const QSize size(scaled(natural.width()), scaled(natural.height()));
  const QRect framed = QRect(QPoint(), size).marginsAdded(frame);
  const auto begin = [](int about, int length, int first, int last) {
    return std::max(std::min(about - length / 2, last + 1 - length), first);
  };
  const QPoint corner(begin(middle.x(), framed.width(), room.left(), room.right()),
                      begin(middle.y(), framed.height(), room.top(), room.bottom()));
  fit.Place = QRect(corner + QPoint(frame.left(), frame.top()), size);
  return fit;
}

int ScreenPixels(int divided, double scale) {
  const auto same = [&](int pixels) { return std::lround(pixels / scale) == divided; };
  const int about = static_cast<int>(std::lround(divided * scale));
  int best = about;
  const auto roundness = [](int pixels) { return std::countr_zero(static_cast<unsigned>(pixels)); };
  const int reach = static_cast<int>(scale);
  for (int pixels = std::max(about - reach, 1); pixels <= about + reach; ++pixels) {
    if (same(pixels) && roundness(pixels) > roundness(best)) best = pixels;
  }
  return best;
}

}  // namespace vantora
