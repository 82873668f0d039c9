#include "catalog/katalog_zeiten.h"

#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "catalog/katalog_rechnung.h"

namespace vantora {

namespace {

constexpr Color kGruen = Rgb(0, 255, 0), kRot = Rgb(255, 0, 0);
constexpr std::int64_t kUeberLaengeMs = 4440001;  // a little over 74 minutes
constexpr std::int64_t kKnapperRestMs = 960000;   // 16 minutes, right after opening
constexpr std::int64_t kMsJeMinute = 60000;
constexpr int kKnappeMinuten = 74;

}  // namespace

KatalogZeiten::KatalogZeiten(Programm& programm, Label& laenge, Label& rest)
    : prog(programm), lblKatalogLaenge(laenge), lblRestzeitCD(rest) {}

void KatalogZeiten::Leeren() {
  lblKatalogLaenge.Caption = L"00:00:00";
  lblRestzeitCD.Caption = prog.Text(8071) + Format(prog.LängeCD * 100.0, L"00:00");
  lblRestzeitCD.ForeColor = kGruen;
  lblKatalogLaenge.ForeColor = kGruen;
}

void KatalogZeiten::Zeigen() {
  std::int64_t gesamt = 0;
  Weiter([&] {
    Text text;
    gesamt = KatalogLaengeBerechnen(prog.Katalog, text);
    lblKatalogLaenge.Caption = text;
  });
  prog.KatalogUeberLaenge = gesamt >= kUeberLaengeMs;
  const std::int64_t erlaubt = prog.LängeCD * kMsJeMinute;
  RestzeitZeigen(erlaubt - gesamt, gesamt <= erlaubt);
}

void KatalogZeiten::RestzeitZeigen(std::int64_t restMs, bool gruen) {
  lblRestzeitCD.ForeColor = gruen ? kGruen : kRot;
  lblKatalogLaenge.ForeColor = lblRestzeitCD.ForeColor;
  lblRestzeitCD.Caption = prog.Text(8071) + RestText(restMs);
}

// Right after opening, the remaining time is already shown as short when less than 16 minutes
// remain.
void KatalogZeiten::NachOeffnen() {
  Text text;
  const std::int64_t gesamt = KatalogLaengeBerechnen(prog.Katalog, text);
  lblKatalogLaenge.Caption = text;
  const std::int64_t rest = prog.LängeCD * kMsJeMinute - gesamt;
  RestzeitZeigen(rest, rest >= kKnapperRestMs);
  ObInZeitGrenzen(gesamt);
}

void KatalogZeiten::Pruefen() {
  Text text;
  ObInZeitGrenzen(KatalogLaengeBerechnen(prog.Katalog, text));
}

void KatalogZeiten::ObInZeitGrenzen(std::int64_t ms) {
  const std::int64_t minuten = GanzDiv(GanzDiv(ms, 1000), 60);
  prog.KatalogUeberLaenge = minuten > kKnappeMinuten;
  if (minuten > prog.LängeCD) {
    prog.MsgBoxen(prog.Text(8003) + ZahlText(minuten) + prog.Text(8004), kHinweis, prog.Text(0));
  }
}

}  // namespace vantora
