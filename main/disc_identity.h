// The media control interface, which here also returns the identity of a disc that the embedded
// writer has written. Such a disc is an image file. The writer does not put the image into the
// embedded drive, so that drive may hold another disc.
#pragma once

#include "backends/cdio/disc_mci.h"
#include "backends/discimage/image_writer.h"

namespace vantora {

class DiscIdentity final : public DiscMci {
 public:
  DiscIdentity(Dateien& files, const ImageWriter& writer, const DiscDrives& drives,
               DiscPlayer& player)
      : DiscMci(drives, player), files_(files), writer_(writer), drives_(drives) {}

  Text WrittenIdentity(const Text& drive) override;

 private:
  Dateien& files_;
  const ImageWriter& writer_;
  const DiscDrives& drives_;
};

}  // namespace vantora
