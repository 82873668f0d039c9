// Whether the texts and layouts beside the program are the whole files that it was built with. A
// file that was cut off would show only later, as a window without words or without half of its
// controls.
#pragma once

#include <filesystem>

namespace vantora {

// The first file below the resource folder that is missing or has fewer lines than it was built
// with; blank when there is none. A file that somebody has made longer passes.
std::filesystem::path IncompleteResource(const std::filesystem::path& folder);

}  // namespace vantora
