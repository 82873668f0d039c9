// Small pieces of every progress display: bars, durations, speeds.
#pragma once

#include "platform/controls.h"

namespace vantora {

// Seconds between two readings of the system timer, also across midnight.
double Verstrichen(double start, double jetzt);

// "hh:mm:ss".
Text DauerText(double ms);

// "X" and a multiple of single speed, never above 8, in at most four characters.
Text TempoText(double tempo);
double TempoGrenze(double tempo);

// Width in twips of a bar for a share of 0 to 1. The picture of a bar is smaller with large fonts.
int BalkenLaenge(double anteil, double twipsJePunkt);

// Widens a bar when that shows: by 20 twips or more, and only on displays of 15 or 12 twips.
void BalkenVerlaengern(Shape& balken, double anteil, double twipsJePunkt);

}  // namespace vantora
