// The toolkit's style in the windows' own scheme. Fields, lists, tables, their bars, and the marks
// of check boxes and option buttons are drawn here and not by style sheets, which the toolkit reads
// and matches anew for every widget.
#pragma once

namespace vantora::look {

// Gives the application its style; doing it again changes nothing.
void UseStyle();

}  // namespace vantora::look
