// One track of the catalog, and the catalog itself: record 0 is the head and carries the title and
// performer of the whole list, the tracks follow from 1.
#pragma once

#include "app/werte/fest_text.h"

#include "platform/laufzeitfehler.h"

#include <cstdint>
#include <vector>

namespace vantora {

struct KatalogEintrag {
  std::int16_t Ueberblendet = 0;  // -1: belongs to a crossfade
  FixedText<50> Titel;
  FixedText<50> Interpret;
  FixedText<10> Laenge;        // milliseconds as text; may have decimals
  std::int16_t GroesseMB = 0;  // whole MB of the wave file
  std::int16_t Pause = 0;      // seconds after the track, 0 to 9
  FixedText<100> Datei;        // full path of the wave file
  std::int32_t DateiBytes = 0;
  Text DateiDatum;  // time stamp of the file, compared for equality only
  FixedText<200> KatalogTitel;
  FixedText<200> KatalogInterpret;
  FixedText<200> PauseSperre;  // "0": the pause is fixed at 0; blank: it may be edited

  bool operator==(const KatalogEintrag&) const = default;
};

// Has at least record 0 once the program has started.
using KatalogFeld = std::vector<KatalogEintrag>;

// Highest index, which is the number of tracks. Raises error 9 when the field is empty.
inline int UBound(const KatalogFeld& feld) {
  if (feld.empty()) throw Laufzeitfehler(kFehlerIndex, L"El subíndice está fuera del intervalo");
  return static_cast<int>(feld.size()) - 1;
}

}  // namespace vantora
