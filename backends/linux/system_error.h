// The numbers of the system's failures as run-time errors of the program.
#pragma once

#include "platform/laufzeitfehler.h"

#include <filesystem>

namespace vantora {

// `error` is an errno of a call on `path`: a missing file is told from a missing folder.
Laufzeitfehler FehlerAusErrno(int error, const std::filesystem::path& path);
[[noreturn]] void RaiseErrno(int error, const std::filesystem::path& path);

// The sentence that the user reads for one of the numbers of platform/files.h.
Laufzeitfehler DateiFehler(int nummer);

}  // namespace vantora
