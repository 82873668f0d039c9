// Brings the highest peak of a wave file to a share of full scale.
#pragma once

#include "platform/files.h"

#include <functional>

namespace vantora {

void NormalizeWaveFile(Dateien& dateien, const Text& file,
                       const std::function<void(int phase, int percent)>& callback, int percent);

}  // namespace vantora
