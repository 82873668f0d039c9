// Text is wide everywhere in the program; only the edge of a file knows bytes.
#pragma once

#include <string>

namespace vantora {

using Text = std::wstring;

}  // namespace vantora
