#include "cdwriting/fortschritt.h"

#include "app/dienste.h"
#include "app/werte/zahlen.h"
#include "cdwriting/frmSchreibFortschritt.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr double kSekundenJeTag = 86400;
constexpr double kHalberTag = 43200;
constexpr double kHoechstTempo = 8;
constexpr int kMindestSchritt = 20;  // twips
constexpr double kUeblich = 15.0, kGrosseSchrift = 12.0;

}  // namespace

double Verstrichen(double start, double jetzt) {
  const double vergangen = jetzt - start;
  if (vergangen < -kHalberTag) return vergangen + kSekundenJeTag;
  return std::max(vergangen, 0.0);  // the start has fewer digits, so it may exceed `jetzt`
}

Text DauerText(double ms) {
  int stunden = 0, minuten = 0, sekunden = 0, frames = 0;
  MsNachHMSF(Abgeschnitten(std::max(ms, 0.0)), stunden, minuten, sekunden, frames);
  return Format(stunden, L"00") + L":" + Format(minuten, L"00") + L":" + Format(sekunden, L"00");
}

double TempoGrenze(double tempo) {
  return std::min(Runden(std::min(tempo, kHoechstTempo + 1) * 100) / 100, kHoechstTempo);
}

Text TempoText(double tempo) {
  return L"X" + ZahlText(TempoGrenze(tempo)).substr(0, 4);
}

int BalkenLaenge(double anteil, double twipsJePunkt) {
  const double laenge = kBalkenBreite * std::clamp(anteil, 0.0, 1.0);
  return static_cast<int>(Abgeschnitten(twipsJePunkt == kGrosseSchrift ? laenge / 1.25 : laenge));
}

void BalkenVerlaengern(Shape& balken, double anteil, double twipsJePunkt) {
  if (twipsJePunkt != kUeblich && twipsJePunkt != kGrosseSchrift) return;
  const int ziel = BalkenLaenge(anteil, twipsJePunkt);
  if (ziel >= balken.Width + kMindestSchritt) balken.Width = ziel;
}

}  // namespace vantora
