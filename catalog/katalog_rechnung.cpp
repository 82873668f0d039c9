#include "catalog/katalog_rechnung.h"

#include "app/dienste.h"
#include "app/werte/feld.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr const wchar_t* kGeloescht = L"DEL";  // title of a record to be deleted

}  // namespace

KatalogFeld LeererKatalog(const Text& titel, const Text& interpret) {
  KatalogFeld katalog(1);
  katalog[0].KatalogTitel = titel;
  katalog[0].KatalogInterpret = interpret;
  return katalog;
}

std::int64_t KatalogLaengeBerechnen(const KatalogFeld& katalog, Text& text) {
  std::int64_t gesamt = 0;
  const int letzter = UBound(katalog);
  for (int i = 1; i <= letzter; ++i) {
    const KatalogEintrag& e = katalog[static_cast<std::size_t>(i)];
    const Text laenge = e.Laenge.Ganz();
    gesamt += Abgeschnitten(Val(laenge));
    // The last two digits of a full ten-character length are added once more: the catalog's total
    // is defined so, and the times shown for saved catalogs depend on it.
    gesamt += Abgeschnitten(Val(Rechts(laenge, 2)));
    if (i < letzter) gesamt += e.DateiBytes * std::int64_t{1000};
  }
  int stunden = 0, minuten = 0, sekunden = 0, frames = 0;
  MsNachHMSF(gesamt, stunden, minuten, sekunden, frames);
  text = Format(stunden, L"00") + L":" + Format(minuten, L"00") + L":" + Format(sekunden, L"00");
  return gesamt;
}

void PauseBestimmen(KatalogFeld& katalog, int i) {
  const auto eintrag = [&katalog](int n) -> KatalogEintrag& { return Element(katalog, n); };
  const int letzter = UBound(katalog);
  KatalogEintrag& e = eintrag(i);
  e.PauseSperre = L"";
  if (e.Ueberblendet == -1) {
    const std::int16_t pause = e.Pause;
    e.Pause = 0;
    e.PauseSperre = L"0";
    const bool endeDerKette = i < letzter && i >= 1 && eintrag(i - 1).Ueberblendet == -1 &&
                              eintrag(i + 1).Ueberblendet == 0;
    if (endeDerKette) {
      e.Pause = pause;
      e.PauseSperre = L"";
    }
  }
  if (i == letzter) e.PauseSperre = L"0";
}

int Wiederfinden(const KatalogFeld& katalog, const KatalogEintrag& eintrag, int nummer) {
  for (int i = std::min(nummer, UBound(katalog)); i >= 1; --i) {
    const KatalogEintrag& e = Element(katalog, i);
    if (e.Datei == eintrag.Datei && e.Titel == eintrag.Titel) return i;
  }
  return 0;
}

int ZielDesSchritts(const KatalogFeld& katalog, int nummer, int schritt) {
  const int letzter = UBound(katalog);
  int ziel = nummer + schritt;
  while (ziel >= 1 && ziel <= letzter &&
         katalog[static_cast<std::size_t>(ziel)].Ueberblendet != 0) {
    ziel += schritt;
  }
  return ziel >= 1 && ziel <= letzter ? ziel : 0;
}

void TrackAnfuegen(KatalogFeld& katalog, const KatalogEintrag& track) {
  KatalogEintrag& neu = katalog.emplace_back(track);
  neu.KatalogTitel = katalog[0].KatalogTitel;
  neu.KatalogInterpret = katalog[0].KatalogInterpret;
}

void KatalogAnfuegen(KatalogFeld& katalog, const KatalogFeld& quelle) {
  for (std::size_t i = 1; i < quelle.size(); ++i) TrackAnfuegen(katalog, quelle[i]);
}

// The records are marked by their title, so a track that the user has named like the mark is
// removed too.
void TracksEntfernen(KatalogFeld& katalog, const std::vector<int>& nummern) {
  for (const int nummer : nummern) Element(katalog, nummer).Titel = kGeloescht;
  KatalogFeld bleibt(1, katalog[0]);
  for (std::size_t i = 1; i < katalog.size(); ++i) {
    if (katalog[i].Titel.Getrimmt() != kGeloescht) bleibt.push_back(katalog[i]);
  }
  katalog = std::move(bleibt);
}

}  // namespace vantora
