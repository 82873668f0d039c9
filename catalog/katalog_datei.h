// The catalog file (.vtr): a 32-bit count, then every record of the catalog, record 0 first.
// All integers are little-endian, all text is Windows-1252. There is no magic number and no
// version, so a foreign file is noticed only when it ends too early: that raises Laufzeitfehler 62.
#pragma once

#include "app/zustand/katalog_eintrag.h"

#include "platform/files.h"

namespace vantora {

// Reads `datei` into `ziel`. When reading fails half way, `ziel` holds the records before the
// error. An impossible count leaves `ziel` unchanged and raises error 9 (below 0) or 62 (too high).
void KatalogLesen(Dateien& dateien, const Text& datei, KatalogFeld& ziel);

// Writes a new file beside `datei` first, and copies it over `datei` afterwards. A full disk
// therefore leaves an older file of that name unchanged.
void KatalogSchreiben(Dateien& dateien, const Text& datei, const KatalogFeld& katalog);

}  // namespace vantora
