// Grabbing: tracks of the disc in the chosen drive become wave files, which enter the catalog.
#pragma once

#include "platform/text.h"

#include <cstddef>
#include <cstdint>

namespace vantora {

struct Programm;

inline constexpr std::size_t kLaengsterPfad = 100;  // characters that the catalog can hold

// Reports a target whose path is too long for the catalog; returns false then.
bool ZielePassen(Programm& prog);

// Reads `GrabTracks` into `GrabDateien` and reports the result to the user. The drive must not be
// in use for playing, and stays closed. Returns 0 when all tracks were read, otherwise 1; tracks
// that were finished before stay in the catalog.
int SaveWave(Programm& prog);

// Enters a finished file in the catalog; `nummer` counts the tracks of the grab from 0.
void KatalogAusGrab(Programm& prog, const Text& datei, std::size_t nummer);

// Replaces each blank of a path's file name by "_", as the files of a grab are named.
Text OhneLeerzeichen(const Text& pfad);

// Whole MB of `ms` of audio.
std::int32_t MBVonMs(std::int32_t ms);

}  // namespace vantora
