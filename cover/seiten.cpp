#include "cover/seiten.h"

#include "app/werte/feld.h"
#include "app/werte/zahlen.h"

#include "platform/twips.h"

#include <algorithm>
#include <cmath>

namespace vantora {

namespace {

constexpr Mass kRueckseitenMass = {8565, 6690};
constexpr Mass kDoppelMass = {13605, 6810};
constexpr Mass kVorderMass = {6802, 6810};
constexpr Mass kLabelMass = {6810, 6810};

constexpr int kErsteZeileY = 650, kZeilenAbstand = 180;
constexpr int kZeilenX = 600, kZeilenXDoppelt = 5600;
constexpr int kTitelY = 150, kInterpretY = 400;  // title and performer stand above the lines

constexpr double kGrosseSchriftTeiler = 1.25;

constexpr int kTastenWeg = 100;

}  // namespace

int SeiteFuer(int knopf, int papierArt) {
  if (knopf == kLabel) return kLabel;
  const bool cover = knopf == kCoverDoppelt || knopf == kCoverPapier;
  if (papierArt == kPapierQM) return cover ? kCoverPapier : kRueckseitePapier;
  return cover ? kCoverDoppelt : kRueckseite;
}

Mass MassDerSeite(int seite) {
  switch (seite) {
    case kCoverDoppelt:
      return kDoppelMass;
    case kCoverPapier:
      return kVorderMass;
    case kLabel:
      return kLabelMass;
    default:
      return kRueckseitenMass;
  }
}

CoverTeil TeilDerSeite(int seite) {
  if (seite == kLabel) return kTeilLabel;
  return seite == kCoverDoppelt || seite == kCoverPapier ? kTeilCover : kTeilRueckseite;
}

Rechteck BildPlatz(int seite) {
  const Mass mass = MassDerSeite(seite);
  if (seite == kCoverDoppelt) {
    const int mitte = mass.Breite / 2;
    return {mitte, 0, mass.Breite - mitte, mass.Hoehe};
  }
  if (TeilDerSeite(seite) == kTeilRueckseite) {
    return {kRueckenBreite, 0, mass.Breite - 2 * kRueckenBreite, mass.Hoehe};
  }
  return {0, 0, mass.Breite, mass.Hoehe};
}

void ZeilenPosFuellen(CoverZustand& cover, double twipsJePixel) {
  const double teiler = twipsJePixel == kLargeFontTwipsPerPixel ? kGrosseSchriftTeiler : 1;
  const auto ort = [teiler](int x, int y) {
    return CoverZustand::Ort{Ganz32(x / teiler), Ganz32(y / teiler)};
  };
  for (int seite = 0; seite < kCoverSeiten; ++seite) {
    const int x = seite == kCoverDoppelt ? kZeilenXDoppelt : kZeilenX;
    Element(cover.TitelPos, seite) = ort(x, kTitelY);
    Element(cover.InterpretPos, seite) = ort(x, kInterpretY);
    for (int n = 1; n <= kCoverZeilen; ++n) {
      Element(Element(cover.ZeilenPos, seite), n) = ort(x, kErsteZeileY + kZeilenAbstand * (n - 1));
    }
  }
}

Mass Raster(double twipsJePixel) {
  return twipsJePixel == kTwipsPerPixel ? kTastenRaster : Mass{120, 60};
}

int Gerastet(double wert, int schritt) {
  return Ganz32(Runden(wert / schritt) * schritt);
}

CoverZustand::Ort OrtInDerSeite(int seite, double x, double y, const Mass& text,
                                const Mass& raster) {
  const Mass mass = MassDerSeite(seite);
  const auto innen = [](double wert, int schritt, int rest) {
    const int letzter = rest <= 0 ? 0 : rest - rest % schritt;
    return std::clamp(Gerastet(wert, schritt), 0, letzter);
  };
  return {innen(x, raster.Breite, mass.Breite - text.Breite),
          innen(y, raster.Hoehe, mass.Hoehe - text.Hoehe)};
}

bool TastenSchritt(int seite, int taste, const Mass& text, CoverZustand::Ort& ort) {
  const Mass mass = MassDerSeite(seite);
  const auto verlaesst = [](int vorher, int nachher, int laenge, int seitenlaenge) {
    const int letzter = seitenlaenge - laenge;
    return nachher < std::min(0, vorher) || nachher > std::max(letzter, vorher);
  };
  auto [x, y] = ort;
  if (taste == kKeyLeft) x -= kTastenWeg;
  if (taste == kKeyRight) x += kTastenWeg;
  if (taste == kKeyUp) y -= kTastenWeg;
  if (taste == kKeyDown) y += kTastenWeg;
  x = Gerastet(x, kTastenRaster.Breite);
  y = Gerastet(y, kTastenRaster.Hoehe);
  if (verlaesst(ort[0], x, text.Breite, mass.Breite)) return false;
  if (verlaesst(ort[1], y, text.Hoehe, mass.Hoehe)) return false;
  ort = {x, y};
  return true;
}

double VorschauMass(const Mass& seite, const Mass& platz) {
  return std::min(Quotient(platz.Breite, seite.Breite), Quotient(platz.Hoehe, seite.Hoehe));
}

void Punktreihe(int von, int bis, const std::function<void(int)>& punkt) {
  constexpr int kTakt = 20, kSprung = 10;
  for (int i = von; i <= bis; ++i) {
    if (i % kTakt == 0) i += kSprung;
    punkt(i);
  }
}

}  // namespace vantora
