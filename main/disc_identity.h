// What the media control interface tells, the embedded writer's last disc included: nobody carries
// that from the writer to the drive, so it counts as the disc in the embedded drive for as long as
// no other one is laid in.
#pragma once

#include "backends/cdio/disc_mci.h"
#include "backends/discimage/image_writer.h"

namespace vantora {

class DiscIdentity final : public DiscMci {
 public:
  DiscIdentity(Dateien& files, const ImageWriter& writer, const DiscDrives& drives,
               DiscPlayer& player)
      : DiscMci(drives, player), files_(files), writer_(writer), drives_(drives) {}

  Text MediaIdentity(const Text& drive) override;

 private:
  Dateien& files_;
  const ImageWriter& writer_;
  const DiscDrives& drives_;
};

}  // namespace vantora
