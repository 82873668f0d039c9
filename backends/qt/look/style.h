// The toolkit style with the windows' look. Fields, lists, tables, scroll bars, check boxes and
// option buttons are drawn here and not by style sheets, which the toolkit parses and matches again
// for every widget.
#pragma once

namespace vantora::look {

// Sets the application's style. Repeated calls change nothing.
void UseStyle();

}  // namespace vantora::look
