// The visible words of the help viewer.
#pragma once

#include "platform/text.h"

namespace vantora {

struct HelpWords {
  Text Title;  // of the window
  Text Back;   // the buttons, in their order
  Text Forward;
  Text Home;
  Text Close;
  Text Search;     // names the box for words
  Text SearchTip;  // stands in the empty box
  Text Pages;      // names the list of pages
  Text Page;       // names the page that is shown
  Text Nothing;    // no page holds the words
};

}  // namespace vantora
