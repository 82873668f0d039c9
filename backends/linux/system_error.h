// Converts errors of the system to run-time errors of the program.
#pragma once

#include "platform/laufzeitfehler.h"

#include <filesystem>

namespace vantora {

// `error` is the errno of a call on `path`. A missing file and a missing folder get different
// numbers.
Laufzeitfehler FehlerAusErrno(int error, const std::filesystem::path& path);
[[noreturn]] void RaiseErrno(int error, const std::filesystem::path& path);

// The error with one of the numbers of platform/files.h and the sentence that the user reads.
Laufzeitfehler DateiFehler(int nummer);

}  // namespace vantora
