// The requests (ioctl) of an optical drive's device file, answered as the system's driver does: the
// generic ones hand a command to the drive, the others turn into commands.
#pragma once

#include "tests/emulators/drive/drive.h"

namespace vantora::bottle {

class Requests {
 public:
  explicit Requests(Drive& drive) : drive_(drive) {}

  // As ioctl answers, errno included.
  int Do(unsigned long request, void* argument);
  bool HasDisc();

 private:
  Answer Ask(const Bytes& command, const Bytes& sent = {});
  // For the requests that the driver itself answers: errno or 0.
  int Driver(const Bytes& command, Bytes& data, const Bytes& sent = {});
  int Plain(unsigned long request, int number);  // as the kernel has it: -errno, or the answer
  int WithStructure(unsigned long request, void* argument);  // errno or 0
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

}  // namespace vantora::bottle
