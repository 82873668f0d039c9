// The SHA-256 sum of a file, with which a script compares a burned disc to its source.
#pragma once

#include "platform/files.h"

#include <string>

namespace vantora {

// In lower-case hexadecimal digits, from the current position of the file to its end.
std::string Sha256Of(Datei& file);

}  // namespace vantora
