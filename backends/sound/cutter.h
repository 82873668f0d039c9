// Removes a range of frames from a wave file in place, in blocks of at most 1 MiB. What of the
// range lies outside the file is not looked at.
#pragma once

#include "platform/files.h"
#include "platform/ts_cut.h"

namespace vantora {

class Cutter final : public TsCut {
 public:
  explicit Cutter(Dateien& dateien) : dateien_(dateien) {}

  void Cut(const Text& file, std::int64_t first, std::int64_t last) override;

 private:
  Dateien& dateien_;
};

}  // namespace vantora
