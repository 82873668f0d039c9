// Pictures without a screen: a file is read as far as its measures, which is all that can be seen.
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
