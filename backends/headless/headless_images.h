// Loads pictures without a screen. Only the width and the height of a picture are read from its
// file, because the picture is never drawn.
#pragma once

#include "platform/files.h"
#include "platform/images.h"

#include <cstdint>
#include <vector>

namespace vantora {

class HeadlessImages final : public Images {
 public:
  explicit HeadlessImages(Dateien& files) : files_(files) {}
  Bild Load(const Text& file) override;

 private:
  Dateien& files_;
};

}  // namespace vantora
