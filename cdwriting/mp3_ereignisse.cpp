// The events of an MP3 conversion: progress and end. They are members of frmKomponenten.

#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"
#include "catalog/frmHauptForm.h"
#include "cdinput/frmKomponenten.h"
#include "cdwriting/fortschritt.h"
#include "cdwriting/frmSchreibFortschritt.h"

#include <algorithm>

namespace vantora {

namespace {

Text KurzeDauer(double ms) {
  return MinutenText(Abgeschnitten(std::max(ms, 0.0)));
}

}  // namespace

void frmKomponenten::Mp3Play1_ActFrame(int frame) {
  if (!prog.frmSchreibFortschritt.Geladen() || Mp3Play1.FrameCount() <= 0) return;
  vantora::frmSchreibFortschritt& f = prog.frmSchreibFortschritt();
  const vantora::frmHauptForm& haupt = prog.frmHauptForm();
  const double twips = prog.plattform.bildschirm.TwipsPerPixelX();
  const double anteil =
      std::min(static_cast<float>(frame) / static_cast<float>(Mp3Play1.FrameCount()), 1.0F);
  f.lblAktKopiePro.Caption = Format(anteil, L"0.00%");
  int nummer = 1, gesamt = 1;
  double insgesamt = anteil;
  if (prog.MehrfachAuswahl) {
    gesamt = haupt.DateienGesamt;
    nummer = haupt.DateienGesamt - haupt.DateienOffen + 1;
    Weiter([&] { insgesamt = Quotient(nummer, gesamt); });
  }
  f.lblKopieTrackNr.Caption = ZahlText(nummer);
  f.lblKopieNr.Caption = ZahlText(nummer);
  f.lblKopieInsgAnz.Caption = L" / " + ZahlText(gesamt);
  BalkenVerlaengern(f.shpAktKopie, anteil, twips);
  BalkenVerlaengern(f.shpInsgKopie, insgesamt, twips);
  f.lblInsgKopiePro.Caption = Format(insgesamt, L"0.00%");

  const auto vergangenMs = static_cast<double>(prog.plattform.uhr.Ticks() - KonvertierungsStart);
  f.lblAktKopieZeit.Caption = KurzeDauer(vergangenMs);
  Weiter([&] {
    const double tempo = Quotient(anteil * Mp3Play1.LengthMs(), vergangenMs);
    f.lblAktKopieSpeed.Caption = L"X" + Format(TempoGrenze(tempo), L"0.00");
  });
  if (anteil > 0) {
    f.LblAktKopieRestzeit.Caption = KurzeDauer((1 - anteil) * vergangenMs / anteil);
  }
}

void frmKomponenten::Mp3Play1_Failure(int /*code*/, const Text& text) {
  Mp3Play1.Stop();
  prog.AppLog(L"Mp3Play1_Failure", L"!!!!");
  prog.MsgBoxen(LoadResString(9007) + kZeilenEnde + LoadResString(9008) + text, kStopp,
                LoadResString(0));
  Abgebrochen = true;
  KonvertierungAktiv = false;
}

void frmKomponenten::Mp3Play1_ThreadEnded() {
  KonvertierungAktiv = false;
}

}  // namespace vantora
