// The geometry of a cover: the size of each printed side, the places of its picture and its texts,
// and the grid on which texts are moved. All lengths are in twips of the printed side; neither a
// window nor a printer is needed.
#pragma once

#include "app/zustand/cover.h"

#include <functional>

namespace vantora {

enum CoverSeite : int {
  kRueckseite = 0,        // tray card, 151 x 118 mm
  kCoverDoppelt = 1,      // booklet sheet, 240 x 120 mm, texts on the right half
  kLabel = 2,             // disc label, 120 x 120 mm
  kCoverPapier = 3,       // front only, on the pre-cut sheet
  kRueckseitePapier = 4,  // tray card, on the pre-cut sheet
};
enum CoverPapier : int { kZentriert = 0, kPapierQM = 1 };
enum CoverTeil : int { kTeilRueckseite, kTeilCover, kTeilLabel, kCoverTeile };

inline constexpr int kRueckenBreite = 345;  // width of a spine

struct Mass {
  int Breite, Hoehe;

  bool operator==(const Mass&) const = default;
};
struct Rechteck {
  int Links, Oben, Breite, Hoehe;

  bool operator==(const Rechteck&) const = default;
};

// The side that a button (0 back, 1 cover, 2 label) shows for a kind of paper.
int SeiteFuer(int knopf, int papierArt);
Mass MassDerSeite(int seite);
// The picture belongs to a part of the cover and stays the same for every kind of paper.
CoverTeil TeilDerSeite(int seite);
// The area of a side that its picture fills: on the back between the spines, on the booklet the
// front.
Rechteck BildPlatz(int seite);

// Sets the initial places of all texts. A screen of 12 twips a pixel has large fonts; there all
// texts are closer to the corner.
void ZeilenPosFuellen(CoverZustand& cover, double twipsJePixel);

// The grid on which the mouse moves texts.
Mass Raster(double twipsJePixel);
inline constexpr Mass kTastenRaster = {100, 50};
// The nearest multiple of `schritt`.
int Gerastet(double wert, int schritt);
// The place for a text of that size: on the grid, and inside the side if the text fits.
CoverZustand::Ort OrtInDerSeite(int seite, double x, double y, const Mass& text,
                                const Mass& raster);
// Moves a text by one step of an arrow key; returns false where the text would leave the side. A
// text that exceeds an edge, as the last lines of a long list do, can be moved back and along that
// edge.
bool TastenSchritt(int seite, int taste, const Mass& text, CoverZustand::Ort& ort);

// The largest scale at which a side fits into `platz`.
double VorschauMass(const Mass& seite, const Mass& platz);

// A dotted line: calls `punkt` for each position, and leaves a gap of 10 at every multiple of 20.
void Punktreihe(int von, int bis, const std::function<void(int)>& punkt);

}  // namespace vantora
