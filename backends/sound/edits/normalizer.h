// Brings the highest peak of a wave file of 16 bits to a share of full scale, 32767. Every other
// sample is multiplied by the same factor in single precision and rounded, ties to even: within
// half a step and 1/256 of the exact product.
#pragma once

#include "platform/edits.h"
#include "platform/files.h"

#include <functional>

namespace vantora {

// MMTools::NormalizeFile describes the calls of `callback`. A file whose peak is
// where it should be is not written. Error 57 for other than 16 bits.
void NormalizeWaveFile(Dateien& dateien, Edits& edits, const Text& file,
                       const std::function<void(int phase, int percent)>& callback, int percent);

}  // namespace vantora
