#include "backends/qt/pictures.h"

#include "backends/qt/look.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>
#include <cmath>

namespace vantora {

namespace {

constexpr int kCacheKilobytes = 96 * 1024;

}  // namespace

Pictures::Pictures(const std::filesystem::path& folder)
    : folder_(QString::fromStdString(folder.string())), drawn_(kCacheKilobytes) {}

Pictures::~Pictures() = default;

QSvgRenderer* Pictures::Find(const Text& name) {
  const auto known = read_.find(name);
  if (known != read_.end()) return known->second.get();
  const QString file = folder_ + u'/' + look::FromText(name) + QStringLiteral(".svg");
  std::unique_ptr<QSvgRenderer> renderer;
  if (QFile::exists(file)) {
    renderer = std::make_unique<QSvgRenderer>(file);
    if (!renderer->isValid()) renderer.reset();
  }
  if (renderer) renderer->setAspectRatioMode(Qt::IgnoreAspectRatio);
  return read_.emplace(name, std::move(renderer)).first->second.get();
}

QSize Pictures::NaturalSize(const Text& name) {
  QSvgRenderer* renderer = Find(name);
  return renderer == nullptr ? QSize() : renderer->defaultSize();
}

QPixmap Pictures::Get(const Text& name, QSize size, double density, Part part) {
  if (size.isEmpty() || part.Height <= 0) return {};
  const QString key = QStringLiteral("%1|%2x%3|%4|%5|%6")
                          .arg(look::FromText(name))
                          .arg(size.width())
                          .arg(size.height())
                          .arg(density)
                          .arg(part.Top)
                          .arg(part.Height);
  if (const QPixmap* known = drawn_.object(key)) return *known;
  QPixmap pixmap(size * density);
  pixmap.setDevicePixelRatio(density);
  pixmap.fill(Qt::transparent);
  {
    QPainter painter(&pixmap);
    if (QSvgRenderer* renderer = Find(name)) {
      const double whole = size.height() / part.Height;
      renderer->render(&painter, QRectF(0, -part.Top * whole, size.width(), whole));
    } else {
      look::DrawPanel(painter, QRect(QPoint(), size), false);
    }
  }
  const auto kilobytes = std::lround(size.width() * size.height() * density * density * 4 / 1024);
  drawn_.insert(key, new QPixmap(pixmap), std::max(1, static_cast<int>(kilobytes)));
  return pixmap;
}

}  // namespace vantora
