// The toolkit for a process without windows: printing needs its fonts.
#pragma once

namespace vantora {

// Makes the toolkit's application, on a screen that nobody sees, where the process has none. It
// lives as long as the process.
void NeedToolkit();

}  // namespace vantora
