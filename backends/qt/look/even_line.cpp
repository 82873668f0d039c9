#include "backends/qt/look/even_line.h"

#include <QPainter>
#include <QTransform>

#include <algorithm>
#include <cmath>

namespace vantora::look {

QRectF EvenLine(const QPainter& painter, const QRectF& line) {
  const double ratio = painter.device()->devicePixelRatioF();
  const double thin = std::max(1.0, std::floor(ratio));
  if (ratio == thin) return line;
  const QTransform device = painter.deviceTransform();
  const QRectF place = device.mapRect(line);
  // The toolkit clips a widget at the nearest whole pixel. A place in the middle is rounded up.
  const double left = std::floor(place.left() + 0.5), top = std::floor(place.top() + 0.5);
  const auto length = [thin](double logical, double start, double end) {
    return logical <= 1 ? thin : std::max(thin, std::floor(end + 0.5) - start);
  };
  return device.inverted().mapRect(QRectF(left, top, length(line.width(), left, place.right()),
                                          length(line.height(), top, place.bottom())));
}

}  // namespace vantora::look
