// A disc in an optical drive, read through libcdio. Exact reading uses its paranoia reader.
#pragma once

#include "backends/cdio/disc.h"

#include "platform/text.h"

#include <cdio/cdio.h>
#include <cdio/paranoia/cdda.h>
#include <cdio/paranoia/paranoia.h>

#include <memory>
#include <string>

namespace vantora {

Text DiscLibraryVersion();  // version of libcdio, "2.1.0"

class DriveDisc final : public Disc {
 public:
  // Returns nothing when there is no drive, or no disc with tracks in it. The library also accepts
  // the path of a sheet as a device, which replaces the drive on machines without one.
  static std::unique_ptr<DriveDisc> Open(const std::string& device);

  bool StillThere() override;
  bool Read(int sector, int count, void* target) override;
  bool ReadCarefully(int sector, int count, void* target) override;

 private:
  struct Destroy {
    void operator()(CdIo_t* drive) const { cdio_destroy(drive); }
    void operator()(cdrom_drive_t* drive) const { cdio_cddap_close_no_free_cdio(drive); }
    void operator()(cdrom_paranoia_t* reader) const { cdio_paranoia_free(reader); }
  };

  bool ReadContents();
  bool BeginCarefully();

  std::unique_ptr<CdIo_t, Destroy> drive_;  // first: the other members use it and go before it
  std::unique_ptr<cdrom_drive_t, Destroy> audio_;
  std::unique_ptr<cdrom_paranoia_t, Destroy> reader_;
  int next_ = -1;  // sector that the paranoia reader returns next
};

}  // namespace vantora
