// Pictures by resource name. They are drawn from SVG for the size and pixel density needed, or
// taken from the store of an earlier run. A name that is a system path ("/home/...") is a
// photograph of the user, stretched over its whole area.
#pragma once

#include "backends/qt/pictures/picture_store.h"

#include "platform/text.h"

#include <QCache>
#include <QPixmap>
#include <QSize>
#include <QString>

#include <filesystem>
#include <map>
#include <memory>

class QSvgRenderer;

namespace vantora {

class Pictures {
 public:
  // Drawn pictures are kept in the file `store`; nothing is kept when `store` is blank.
  Pictures(const std::filesystem::path& folder, const std::filesystem::path& store);
  ~Pictures();

  // The visible part of a picture, in shares of its height.
  struct Part {
    double Top = 0, Height = 1;
  };
  // The picture stretched to `size` (in window pixels); a neutral panel when the picture is
  // missing.
  QPixmap Get(const Text& name, QSize size, double density, Part part);
  QPixmap Get(const Text& name, QSize size, double density) {
    return Get(name, size, density, Part{});
  }
  QSize NaturalSize(const Text& name);  // empty for a missing picture

 private:
  struct Source {
    QString file;
    qint64 stamp = 0;    // changes with the file; 0 when it is missing
    bool photo = false;  // a picture file of the user, not an SVG
    bool read = false;
    std::unique_ptr<QSvgRenderer> renderer;  // set once the file has been read and is valid
  };

  Source& Find(const Text& name);
  static QSvgRenderer* Renderer(Source& source);
  QImage Draw(Source& source, QSize size, double density, Part part);

  std::filesystem::path folder_;
  PictureStore store_;
  std::map<Text, Source> sources_;
  QCache<QString, QPixmap> drawn_;  // cost in kilobytes
};

}  // namespace vantora
