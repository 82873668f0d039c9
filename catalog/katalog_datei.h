// The catalog file (.vtr): a 32-bit count, then every record of the catalog, record 0 first.
// All integers little-endian, all text Windows-1252. There is no magic number and no version, so a
// foreign file shows only when it ends too early: that raises Laufzeitfehler 62.
#pragma once

#include "app/zustand/katalog_eintrag.h"

#include "platform/files.h"

namespace vantora {

// Reads `datei` into `ziel`. When reading fails half way, `ziel` holds what came before; a count
// that no catalog can have leaves it untouched and raises error 9 (below 0) or 62.
void KatalogLesen(Dateien& dateien, const Text& datei, KatalogFeld& ziel);

// Writes `katalog` beside `datei` first, so that a disk that runs full leaves an older file of that
// name as it was.
void KatalogSchreiben(Dateien& dateien, const Text& datei, const KatalogFeld& katalog);

}  // namespace vantora
