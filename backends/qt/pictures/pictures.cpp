#include "backends/qt/pictures/pictures.h"

#include "backends/qt/look/look.h"

#include <QImageReader>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>
#include <sys/stat.h>

namespace vantora {

namespace {

constexpr int kCacheKilobytes = 96 * 1024;

// The flags avoid a search through all pixels for transparent ones.
QPixmap Shown(QImage image, double density) {
  image.setDevicePixelRatio(density);
  return QPixmap::fromImage(std::move(image), Qt::NoOpaqueDetection | Qt::NoFormatConversion);
}

// Reads a photograph at no less than the size shown, unless it has fewer pixels; the reader scales
// while it reads. Returns a null image when the file is not a picture.
QImage Photo(const QString& file, QSize shown) {
  QImageReader reader(file);
  reader.setAutoTransform(true);
  const QSize whole = reader.size();
  if (whole.width() > shown.width() && whole.height() > shown.height()) {
    reader.setScaledSize(whole.scaled(shown, Qt::KeepAspectRatioByExpanding));
  }
  return reader.read();
}

bool Opaque(const QImage& image) {
  for (int y = 0; y < image.height(); ++y) {
    const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    const auto* end = line + image.width();
    if (std::any_of(line, end, [](QRgb pixel) { return qAlpha(pixel) != 255; })) return false;
  }
  return true;
}

}  // namespace

Pictures::Pictures(const std::filesystem::path& folder, const std::filesystem::path& store)
    : folder_(folder), store_(QString::fromStdString(store.string())), drawn_(kCacheKilobytes) {}

Pictures::~Pictures() = default;

Pictures::Source& Pictures::Find(const Text& name) {
  const auto [entry, added] = sources_.try_emplace(name);
  Source& source = entry->second;
  if (!added) return source;
  source.photo = name.starts_with(L'/');
  const std::string wanted = look::FromText(name).toStdString();
  const std::string path = source.photo ? wanted : (folder_ / (wanted + ".svg")).string();
  source.file = QString::fromStdString(path);
  struct stat info {};
  if (::stat(path.c_str(), &info) != 0) return source;
  constexpr qint64 kNanoseconds = 1'000'000'000;
  source.stamp = info.st_mtim.tv_sec * kNanoseconds + info.st_mtim.tv_nsec + info.st_size;
  return source;
}

QSvgRenderer* Pictures::Renderer(Source& source) {
  if (source.read || source.photo || source.stamp == 0) return source.renderer.get();
  source.read = true;
  auto renderer = std::make_unique<QSvgRenderer>(source.file);
  if (!renderer->isValid()) return nullptr;
  renderer->setAspectRatioMode(Qt::IgnoreAspectRatio);
  source.renderer = std::move(renderer);
  return source.renderer.get();
}

QSize Pictures::NaturalSize(const Text& name) {
  Source& source = Find(name);
  const QString key = look::FromText(name);
  QSize size = store_.FindSize(key, source.stamp);
  if (size.isValid()) return size;
  const QSvgRenderer* renderer = Renderer(source);
  if (renderer == nullptr) return {};
  size = renderer->defaultSize();
  store_.KeepSize(key, source.stamp, size);
  return size;
}

QImage Pictures::Draw(Source& source, QSize size, double density, Part part) {
  QImage image(size * density, QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(density);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  if (const QImage photo = source.photo ? Photo(source.file, image.size()) : QImage();
      !photo.isNull()) {
    painter.drawImage(QRectF(QPointF(), size), photo);
  } else if (QSvgRenderer* renderer = Renderer(source)) {
    const double whole = size.height() / part.Height;
    renderer->render(&painter, QRectF(0, -part.Top * whole, size.width(), whole));
  } else {
    look::DrawPanel(painter, QRect(QPoint(), size), false);
  }
  painter.end();
  // Opaque pictures are marked so that they are copied and not blended.
  if (Opaque(image)) image.reinterpretAsFormat(QImage::Format_RGB32);
  return image;
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
  Source& source = Find(name);
  QImage image = store_.Find(key, source.stamp);
  if (image.isNull()) {
    image = Draw(source, size, density, part);
    store_.Keep(key, source.stamp, image);
  }
  const auto kilobytes = image.sizeInBytes() / 1024;
  QPixmap shown = Shown(std::move(image), density);
  drawn_.insert(key, new QPixmap(shown), std::max(1, static_cast<int>(kilobytes)));
  return shown;
}

}  // namespace vantora
