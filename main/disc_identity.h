// What the media control interface tells, the embedded writer's discs included: nobody carries them
// from the writer to the tray of the embedded drive, in which another disc may lie.
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
