// Removes a range of frames of 4 bytes from a wave file in place. A part of the range outside the
// file is ignored.
#pragma once

#include "platform/edits.h"
#include "platform/files.h"
#include "platform/ts_cut.h"

namespace vantora {

class Cutter final : public TsCut {
 public:
  Cutter(Dateien& dateien, Edits& edits) : dateien_(dateien), edits_(edits) {}

  void Cut(const Text& file, std::int64_t first, std::int64_t last) override;

 private:
  Dateien& dateien_;
  Edits& edits_;
};

}  // namespace vantora
