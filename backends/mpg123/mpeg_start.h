// Where the MPEG audio begins in a file: behind ID3v2 tags and at most 64 KiB of other matter.
#pragma once

#include "platform/files.h"

#include <cstdint>
#include <optional>

namespace vantora {

// Nothing for a file that is something else. Eleven bits make a frame's mark, which any picture,
// text or wave file holds somewhere; so several frames must follow each other.
std::optional<std::int64_t> FindMpegStart(Datei& file);

}  // namespace vantora
