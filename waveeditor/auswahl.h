// The selection of the wave editor: a range of frames, or a cursor before a frame.
#pragma once

#include <cstdint>

namespace vantora {

struct Auswahl {
  std::int32_t MarkerAnfang = 0, MarkerEnde = 0;  // both 0: nothing is selected
  bool NurCursor = false;                         // the marker is a cursor and no range
  std::int32_t CursorPos = 0;                     // the frame of the cursor; valid if NurCursor

  // True if a range is selected. Some edits set a range while NurCursor is true, so callers have to
  // ask for range and cursor separately.
  bool Bereich() const { return MarkerAnfang != 0 || MarkerEnde != 0; }
  // Returns the frame at which playing, pasting and the spectrum begin.
  std::int32_t Stelle() const { return NurCursor ? CursorPos : MarkerAnfang; }
  // Returns the frame at which playing ends. From a cursor, the sound is played to the end of the
  // file.
  std::int32_t Ende(std::int32_t laenge) const { return NurCursor ? laenge : MarkerEnde; }
};

}  // namespace vantora
