// An optical drive through libburn: its abilities, its medium, and its lock while a disc is
// written.
#pragma once

#include "backends/burn/burn_library.h"
#include "backends/burn/burn_order.h"
#include "backends/burn/drive_wait.h"

#include <optional>
#include <string>

namespace vantora {

// Returns nothing for a drive that is in use or does not answer. Afterwards the drive is free again
// and its disc unchanged.
std::optional<DriveAbilities> ExamineDrive(const BurnLibrary& library, const std::string& device);

// A drive with its door locked, held until the end of this object. The drive must be ready (see
// drive_wait.h).
class HeldDrive {
 public:
  HeldDrive(const BurnLibrary& library, const std::string& device);
  ~HeldDrive();
  HeldDrive(const HeldDrive&) = delete;
  HeldDrive& operator=(const HeldDrive&) = delete;

  explicit operator bool() const { return drive_ != nullptr; }
  burn_drive* Get() const { return drive_; }
  bool HasBlankCd() const;
  bool CanSimulate() const { return infos_[0].write_simulate != 0; }
  void EjectAtTheEnd(bool eject) { eject_ = eject; }

 private:
  burn_drive_info* infos_ = nullptr;
  burn_drive* drive_ = nullptr;
  bool eject_ = false;
};

}  // namespace vantora
