// The program's texts are wide strings. Bytes occur only where files are read and written.
#pragma once

#include <string>

namespace vantora {

using Text = std::wstring;

}  // namespace vantora
