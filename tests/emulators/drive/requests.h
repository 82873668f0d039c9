// The requests (ioctl) of an optical drive's device file, answered like the system's driver:
// generic requests pass a command to the drive, the others are translated to commands.
#pragma once

#include "tests/emulators/drive/drive.h"

namespace vantora::emulated {

class Requests {
 public:
  explicit Requests(Drive& drive) : drive_(drive) {}

  // Returns the result of ioctl and sets errno.
  int Do(unsigned long request, void* argument);

 private:
  Answer Ask(const Bytes& command, const Bytes& sent = {});
  // For requests that the driver answers itself; return errno or 0.
  int Driver(const Bytes& command, Bytes& data, const Bytes& sent = {});
  int WithStructure(unsigned long request, void* argument);  // returns errno or 0
  int Generic(void* argument);
  int Packet(void* argument);
  int TocHeader(void* argument);
  int TocEntry(void* argument);
  int Session(void* argument);
  int MediaChanged();
  int DriveStatus();

  Drive& drive_;
  bool changed_ = false;
};

}  // namespace vantora::emulated
