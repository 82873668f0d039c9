// Makes the record of a new track. Depending on the settings, title and performer come from earlier
// catalogs, from the name of the file, or from the usual texts.
#pragma once

#include "app/zustand/katalog_eintrag.h"

#include "platform/mmtools.h"

namespace vantora {

struct Programm;

// Searches the catalogs of the user's folder for a track with this file and time stamp. When none
// has it, the texts stay unchanged.
void KatalogTitelSuchen(Programm& prog, const Text& datei, const Text& datum, Text& titel,
                        Text& interpret, Text& pause);

// Makes the record of a wave file. `vorschlag` is the title that the file's name suggests. Raises
// the errors of reading the file.
KatalogEintrag NeuerTrack(Programm& prog, MMWave& wave, const Text& datei, const Text& vorschlag);

}  // namespace vantora
