// The toolkit in a process without windows, for the fonts that printing needs.
#pragma once

namespace vantora {

// Creates the toolkit's application off screen, unless the process has one. It lives until the
// process ends.
void NeedToolkit();

}  // namespace vantora
