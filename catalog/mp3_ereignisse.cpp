#include "catalog/mp3_ereignisse.h"

#include "app/frmKomponenten.h"
#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"
#include "catalog/frmHauptForm.h"
#include "cdwriting/fortschritt.h"
#include "cdwriting/frmSchreibFortschritt.h"

#include <algorithm>

namespace vantora {

namespace {

Text KurzeDauer(double ms) {
  return MinutenText(Abgeschnitten(std::max(ms, 0.0)));
}

}  // namespace

void Mp3Ereignisse::Mp3Play1_ActFrame(int frame) {
  const Qm3Play& mp3 = prog.plattform.mp3;
  if (!prog.frmSchreibFortschritt.Geladen() || mp3.FrameCount() <= 0) return;
  vantora::frmSchreibFortschritt& f = prog.frmSchreibFortschritt();
  const LiedImport& einfuhr = prog.frmHauptForm().Import();
  const double twips = prog.plattform.bildschirm.TwipsPerPixelX();
  const double anteil =
      std::min(static_cast<float>(frame) / static_cast<float>(mp3.FrameCount()), 1.0F);
  f.lblAktKopiePro.Caption = Format(anteil, L"0.00%");
  int nummer = 1, gesamt = 1;
  double insgesamt = anteil;
  if (prog.MehrfachAuswahl) {
    gesamt = einfuhr.DateienGesamt();
    nummer = einfuhr.DateienGesamt() - einfuhr.DateienOffen() + 1;
    Weiter([&] { insgesamt = Quotient(nummer, gesamt); });
  }
  f.lblKopieTrackNr.Caption = ZahlText(nummer);
  f.lblKopieNr.Caption = ZahlText(nummer);
  f.lblKopieInsgAnz.Caption = L" / " + ZahlText(gesamt);
  BalkenVerlaengern(f.shpAktKopie, anteil, twips);
  BalkenVerlaengern(f.shpInsgKopie, insgesamt, twips);
  f.lblInsgKopiePro.Caption = Format(insgesamt, L"0.00%");

  const auto vergangenMs =
      static_cast<double>(prog.plattform.uhr.Ticks() - prog.frmKomponenten().KonvertierungsStart);
  f.lblAktKopieZeit.Caption = KurzeDauer(vergangenMs);
  Weiter([&] {
    const double tempo = Quotient(anteil * mp3.LengthMs(), vergangenMs);
    f.lblAktKopieSpeed.Caption = L"X" + Format(TempoGrenze(tempo), L"0.00");
  });
  if (anteil > 0) {
    f.LblAktKopieRestzeit.Caption = KurzeDauer((1 - anteil) * vergangenMs / anteil);
  }
}

void Mp3Ereignisse::Mp3Play1_Failure(int /*code*/, const Text& text) {
  prog.plattform.mp3.Stop();
  prog.AppLog(L"Mp3Play1_Failure", L"!!!!");
  prog.MsgBoxen(prog.Text(9007) + kZeilenEnde + prog.Text(9008) + text, kStopp, prog.Text(0));
  prog.frmKomponenten().Abgebrochen = true;
  prog.frmKomponenten().KonvertierungAktiv = false;
}

void Mp3Ereignisse::Mp3Play1_ThreadEnded() {
  prog.frmKomponenten().KonvertierungAktiv = false;
}

}  // namespace vantora
