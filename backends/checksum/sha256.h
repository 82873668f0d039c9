// The SHA-256 sum of a file, so that a script can compare what was burned with what was to be.
#pragma once

#include "platform/files.h"

#include <string>

namespace vantora {

// In small hexadecimal digits, from where the file stands to its end.
std::string Sha256Of(Datei& file);

}  // namespace vantora
