// The place at which the disc in the alias "cd" plays, as the media control interface reports it.
#pragma once

#include "platform/mci.h"

namespace vantora {

class clsCDAudio {
 public:
  explicit clsCDAudio(Mci& mci) : mci_(mci) {}
  int GetCDPosition() { return Teil(0); }
  int GetCDAktMinPosition() { return Teil(3); }
  int GetCDAktSekPosition() { return Teil(6); }

 private:
  int Teil(std::size_t stelle);
  Mci& mci_;
};

}  // namespace vantora
