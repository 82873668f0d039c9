// Digital audio extraction: which devices there are, and the current one.
#pragma once

#include "platform/text.h"

namespace vantora {

class Acd {
 public:
  virtual ~Acd() = default;
  virtual int Init() = 0;        // 0 for success, also on a machine without a drive
  virtual int DriveCount() = 0;  // devices count from 1
  // Fixed places: 1 to 16 product, 21 and 22 target ID, 24 and 25 LUN.
  virtual Text DriveDescription(int device) = 0;
  virtual void SelectDevice(int device) = 0;
  virtual void CloseDevice() = 0;
  virtual void ResetDevice() = 0;
};

}  // namespace vantora
