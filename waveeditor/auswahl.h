// What is selected in the wave editor: a range of frames, or a cursor before one of them.
#pragma once

#include <cstdint>

namespace vantora {

struct Auswahl {
  std::int32_t MarkerAnfang = 0, MarkerEnde = 0;  // both 0: nothing is selected
  bool NurCursor = false;                         // the marker is a cursor and no range
  std::int32_t CursorPos = 0;                     // while NurCursor

  // A range is selected. Some edits set a range while NurCursor is true, so the two flags are asked
  // for separately.
  bool Bereich() const { return MarkerAnfang != 0 || MarkerEnde != 0; }
  // Where playing, pasting and the spectrum begin.
  std::int32_t Stelle() const { return NurCursor ? CursorPos : MarkerAnfang; }
  // Where playing ends; a cursor plays to the end of the file.
  std::int32_t Ende(std::int32_t laenge) const { return NurCursor ? laenge : MarkerEnde; }
};

}  // namespace vantora
