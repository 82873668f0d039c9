// The source from which libburn reads a track's sound, in blocks and from its writing thread.
#pragma once

#include "backends/burn/burn_library.h"
#include "backends/sound/disc/disc_plan.h"

#include "platform/files.h"

#include <functional>
#include <memory>

namespace vantora {

struct FreeSource {
  void operator()(burn_source* source) const { burn_source_free(source); }
};
using SourceHandle = std::unique_ptr<burn_source, FreeSource>;

// `failed` is called from the writing thread when a file cannot be read to its end. The library
// itself would go on with silence.
SourceHandle TrackSource(Dateien& files, const PlannedTrack& track,
                         std::function<void(int number, const Text& text)> failed);

}  // namespace vantora
