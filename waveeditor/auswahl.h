// What is selected in the wave editor: a range of frames, or a cursor before one of them.
#pragma once

#include <cstdint>

namespace vantora {

struct Auswahl {
  std::int32_t MarkerAnfang = 0, MarkerEnde = 0;  // both 0: nothing is selected
  bool NurCursor = false;                         // the marker is a cursor and no range
  std::int32_t CursorPos = 0;                     // while NurCursor
};

}  // namespace vantora
