// Checks that texts and layouts beside the program are complete. A truncated file would otherwise
// be noticed only later, as a window without words or without some of its controls.
#pragma once

#include <filesystem>

namespace vantora {

// Returns the first file below the resource folder that is missing or has fewer lines than at build
// time; blank when there is none. Files may have more lines.
std::filesystem::path IncompleteResource(const std::filesystem::path& folder);

}  // namespace vantora
