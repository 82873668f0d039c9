// Functions for all progress displays: bars, durations, speeds.
#pragma once

#include "platform/controls.h"

namespace vantora {

// Seconds between two readings of the system timer, also across midnight.
double Verstrichen(double start, double jetzt);

// "hh:mm:ss".
Text DauerText(double ms);

// "X" and a multiple of single speed, at most 8, in at most four characters.
Text TempoText(double tempo);
double TempoGrenze(double tempo);

// Width in twips of a bar for a share of 0 to 1. With large fonts the picture of a bar is smaller.
int BalkenLaenge(double anteil, double twipsJePunkt);

// Widens a bar by at least 20 twips, and only on displays with 15 or 12 twips a pixel.
void BalkenVerlaengern(Shape& balken, double anteil, double twipsJePunkt);

}  // namespace vantora
