// The printed sides of a cover: how large they are, where their picture and their texts stand, and
// the grid on which texts are moved. All lengths in twips of the printed side; no window and no
// printer is needed to count them.
#pragma once

#include "app/zustand/cover.h"

#include <functional>

namespace vantora {

enum CoverSeite : int {
  kRueckseite = 0,        // tray card, 151 x 118 mm
  kCoverDoppelt = 1,      // booklet sheet, 240 x 120 mm, texts on the right half
  kLabel = 2,             // disc label, 120 x 120 mm
  kCoverPapier = 3,       // front alone, on the pre-cut sheet
  kRueckseitePapier = 4,  // tray card, on the pre-cut sheet
};
enum CoverPapier : int { kZentriert = 0, kPapierQM = 1 };
enum CoverTeil : int { kTeilRueckseite, kTeilCover, kTeilLabel, kCoverTeile };

inline constexpr int kRueckenBreite = 345;  // of a spine

struct Mass {
  int Breite, Hoehe;

  bool operator==(const Mass&) const = default;
};
struct Rechteck {
  int Links, Oben, Breite, Hoehe;

  bool operator==(const Rechteck&) const = default;
};

// The side that a button (0 back, 1 cover, 2 label) shows on this paper.
int SeiteFuer(int knopf, int papierArt);
Mass MassDerSeite(int seite);
// A part keeps its picture whatever the paper.
CoverTeil TeilDerSeite(int seite);
// What a picture fills of a side: the back between its spines, of the booklet sheet the front.
Rechteck BildPlatz(int seite);

// The places that all texts have at first. A screen of 12 twips a pixel shows large fonts: there
// everything stands nearer to the corner.
void ZeilenPosFuellen(CoverZustand& cover, double twipsJePixel);

// The grid on which a mouse moves texts.
Mass Raster(double twipsJePixel);
inline constexpr Mass kTastenRaster = {100, 50};
// The nearest line of the grid.
int Gerastet(double wert, int schritt);
// A place for a text of that size: on the grid, and inside the side if there is room for it.
CoverZustand::Ort OrtInDerSeite(int seite, double x, double y, const Mass& text,
                                const Mass& raster);
// One step of an arrow key; false where the text would leave the side. A text that reaches beyond
// an edge, as the last lines of a long list do, can be brought back, and moved along that edge.
bool TastenSchritt(int seite, int taste, const Mass& text, CoverZustand::Ort& ort);

// The largest scale at which a side fits.
double VorschauMass(const Mass& seite, const Mass& platz);

// A dotted line: at every multiple of 20 the next point is set 10 further on.
void Punktreihe(int von, int bis, const std::function<void(int)>& punkt);

}  // namespace vantora
