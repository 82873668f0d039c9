// Scales a 16-bit wave file so that its peak reaches a share of full scale, 32767. All samples are
// multiplied by the same factor in single precision and rounded, ties to even; the result is within
// 1/2 + 1/256 of the exact product.
#pragma once

#include "platform/edits.h"
#include "platform/files.h"

#include <functional>

namespace vantora {

// MMTools::NormalizeFile describes the calls of `callback`. A file whose peak already has the right
// level is not written. Raises 57 for other than 16 bits.
void NormalizeWaveFile(Dateien& dateien, Edits& edits, const Text& file,
                       const std::function<void(int phase, int percent)>& callback, int percent);

}  // namespace vantora
