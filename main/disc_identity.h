// The media identity of the disc that the embedded writer finished last: a number made of where its
// tracks begin, as a CD player tells discs apart. A disc of one or two tracks counts its length
// too.
#pragma once

#include "backends/discimage/image_writer.h"
#include "backends/discimage/no_drive.h"

#include "platform/mci.h"

namespace vantora {

class DiscIdentity final : public NoMci {
 public:
  DiscIdentity(Dateien& files, const ImageWriter& writer) : files_(files), writer_(writer) {}

  Text MediaIdentity(const Text& drive) override;

 private:
  Dateien& files_;
  const ImageWriter& writer_;
};

}  // namespace vantora
