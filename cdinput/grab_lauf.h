// Grabbing: tracks of the disc in the chosen drive become wave files, and these enter the catalog.
#pragma once

#include "platform/text.h"

#include <cstddef>
#include <cstdint>

namespace vantora {

struct Programm;

inline constexpr std::size_t kLaengsterPfad = 100;  // characters that the catalog can hold

// Reports a target whose path is too long for the catalog; false when there is one.
bool ZielePassen(Programm& prog);

// Reads `GrabTracks` into `GrabDateien` and tells the user how it ended. The drive must not be in
// use for playing, and stays closed. 0 when all tracks were read, else 1; tracks that were finished
// before stay in the catalog.
int SaveWave(Programm& prog);

// Enters a finished file in the catalog, as track `nummer` of the grab, from 0.
void KatalogAusGrab(Programm& prog, const Text& datei, std::size_t nummer);

// A path with "_" for every blank of its file name, as the files of a grab are named.
Text OhneLeerzeichen(const Text& pfad);

// Whole MB of so many ms of audio.
std::int32_t MBVonMs(std::int32_t ms);

}  // namespace vantora
