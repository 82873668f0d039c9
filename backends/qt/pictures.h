// The pictures by resource name, drawn from SVG at the size and density that they are shown in.
#pragma once

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
  explicit Pictures(const std::filesystem::path& folder);
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
  QSize NaturalSize(const Text& name);  // empty for a missing picture

 private:
  QSvgRenderer* Find(const Text& name);  // nothing when it is missing or broken

  QString folder_;
  std::map<Text, std::unique_ptr<QSvgRenderer>> read_;
  QCache<QString, QPixmap> drawn_;  // cost in kilobytes
};

}  // namespace vantora
