// The tracks that the medley window joins, in play order. While the window is closed, the field
// holds one blank record.
#pragma once

#include "app/werte/fest_text.h"

#include "platform/text.h"

#include <cstdint>
#include <vector>

namespace vantora {

// `Dauer` and `PitchKorrektur` belong to the transition from this track into the next one, so those
// of the last track are never used.
struct MedleyEintrag {
  FixedText<50> Titel;
  FixedText<50> Interpret;
  FixedText<100> Datei;             // full path of the wave file
  FixedText<10> Laenge;             // ms as text
  Text BPM;                         // beats a minute, as typed; blank until it is set
  Text Dauer;                       // of the crossfade, seconds
  std::int16_t PitchKorrektur = 0;  // -1: the tempo slides during the crossfade
};

struct MedleyZustand {
  std::vector<MedleyEintrag> Medley = std::vector<MedleyEintrag>(1);
};

}  // namespace vantora
