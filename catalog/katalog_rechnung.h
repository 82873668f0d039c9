// Arithmetic on the records of a catalog, which knows no window. Record 0 is no track: it holds the
// titles of the catalog.
#pragma once

#include "app/zustand/katalog_eintrag.h"

#include <cstdint>
#include <vector>

namespace vantora {

KatalogFeld LeererKatalog(const Text& titel, const Text& interpret);

// Returns the length of all tracks with their pauses, in ms; `text` becomes "hh:mm:ss".
std::int64_t KatalogLaengeBerechnen(const KatalogFeld& katalog, Text& text);

// Sets the pause of a track, and whether the user may change it: a crossfade has no pause behind
// it, and the last track has none.
void PauseBestimmen(KatalogFeld& katalog, int nummer);

// Returns the present number of a record that was at `nummer`. Removed records above it may have
// moved it up; 0 when the record itself was removed.
int Wiederfinden(const KatalogFeld& katalog, const KatalogEintrag& eintrag, int nummer);

// Returns the number to which a track moves by one step up (-1) or down (1), or 0 if it cannot
// move. A block of crossfaded tracks is skipped as a whole.
int ZielDesSchritts(const KatalogFeld& katalog, int nummer, int schritt);

// Appends the tracks of another catalog; they take over the titles of this one.
void KatalogAnfuegen(KatalogFeld& katalog, const KatalogFeld& quelle);
// Appends one track, which takes over the titles of this catalog.
void TrackAnfuegen(KatalogFeld& katalog, const KatalogEintrag& track);

void TracksEntfernen(KatalogFeld& katalog, const std::vector<int>& nummern);

}  // namespace vantora
