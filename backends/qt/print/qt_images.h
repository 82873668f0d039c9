// Loads pictures from files with the toolkit.
#pragma once

#include "platform/files.h"
#include "platform/images.h"

namespace vantora {

class QtImages final : public Images {
 public:
  explicit QtImages(Dateien& files) : files_(files) {}
  Bild Load(const Text& file) override;

 private:
  Dateien& files_;
};

}  // namespace vantora
