// The pictures by resource name, drawn from SVG at the size and density that they are shown in, or
// taken from those that an earlier run has drawn. A name that is a path of the system ("/home/...")
// is a photograph of the user's, which fills its place.
#pragma once

#include "backends/qt/pictures/picture_store.h"

#include "platform/text.h"

#include <QCache>
#include <QPixmap>
#include <QSize>
#include <QString>

#include <filesystem>
#include <functional>
#include <map>
#include <memory>

class QPainter;
class QSvgRenderer;

namespace vantora {

class Pictures {
 public:
  // Drawn pictures are kept in the file `store`, and words in another one beside it; blank: they
  // are not.
  Pictures(const std::filesystem::path& folder, const std::filesystem::path& store);
  ~Pictures();

  // What of a picture is shown, in shares of its height.
  struct Part {
    double Top = 0, Height = 1;
  };
  // The picture stretched to `size` (in the window's pixels); a neutral panel when it is missing.
  QPixmap Get(const Text& name, QSize size, double density, Part part);
  QPixmap Get(const Text& name, QSize size, double density) {
    return Get(name, size, density, Part{});
  }
  // Words as the start before has drawn them. `key` tells all that they depend on but the fonts,
  // with which `fonts` changes; `paint` paints them, in the window's pixels.
  QPixmap Words(const QString& key, qint64 fonts, QSize size, double density,
                const std::function<void(QPainter&)>& paint);
  QSize NaturalSize(const Text& name);  // empty for a missing picture

 private:
  struct Source {
    QString file;
    qint64 stamp = 0;    // changes with the file; 0 when it is missing
    bool photo = false;  // a picture file of the user's, no drawing
    bool read = false;
    std::unique_ptr<QSvgRenderer> renderer;  // when it has been read and is none that is broken
  };

  Source& Find(const Text& name);
  static QSvgRenderer* Renderer(Source& source);
  QImage Draw(Source& source, QSize size, double density, Part part);

  std::filesystem::path folder_;
  PictureStore store_, words_;
  std::map<Text, Source> sources_;
  QCache<QString, QPixmap> drawn_;  // cost in kilobytes
};

}  // namespace vantora
