#include "cdinput/grab_ereignisse.h"

#include "app/frmKomponenten.h"
#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "cdwriting/fortschritt.h"
#include "cdwriting/frmSchreibFortschritt.h"

namespace vantora {

namespace {

constexpr double kGanzeStrecke = 1000;  // position at the end of a track
constexpr int kVersuche = 10;
constexpr const wchar_t* kLesefehler = L"ASPI Error";

struct Strecke {
  Label &Prozent, &Zeit, &Rest, &Tempo;
};

// Shows percent, times and speed when `anteil` of the audio, `ms` long, is done. At the start there
// is no speed and no remaining time.
void StreckeZeigen(const Strecke& s, double anteil, double ms, double sekunden) {
  s.Prozent.Caption = ZahlText(Abgeschnitten(anteil * 100)) + L"%";
  s.Zeit.Caption = DauerText(sekunden * 1000);
  if (anteil <= 0) return;
  s.Rest.Caption = DauerText((sekunden / anteil - sekunden) * 1000);
  Weiter([&] { s.Tempo.Caption = TempoText(Quotient(ms, sekunden * 1000)); });
}

}  // namespace

void GrabEreignisse::ACD_ReadComplete() {
  prog.GrabFertig = true;
  prog.GrabLaeuft = false;
}

void GrabEreignisse::ACD_ActPosition(int position) {
  vantora::frmKomponenten& k = prog.frmKomponenten();
  if (k.CDGeschlossen || !prog.GrabLaeuft || !prog.frmSchreibFortschritt.Geladen()) return;
  vantora::frmSchreibFortschritt& f = prog.frmSchreibFortschritt();
  const double twips = prog.plattform.bildschirm.TwipsPerPixelX();
  const double jetzt = prog.plattform.uhr.Timer();
  if (k.AktTrack != k.AngezeigterTrack) {
    k.AngezeigterTrack = k.AktTrack;
    prog.TrackStartZeit = static_cast<float>(jetzt);
  }
  const double imTrack = position / kGanzeStrecke;
  double insgesamt = 0;
  Weiter([&] {
    insgesamt =
        Quotient(prog.GrabAktuell + imTrack * prog.GrabTrackSektoren, prog.GrabGesamtSektoren);
  });
  BalkenVerlaengern(f.shpAktKopie, imTrack, twips);
  BalkenVerlaengern(f.shpInsgKopie, insgesamt, twips);
  const double trackMs = imTrack * prog.GrabTrackMs;
  StreckeZeigen({f.lblAktKopiePro, f.lblAktKopieZeit, f.LblAktKopieRestzeit, f.lblAktKopieSpeed},
                imTrack, trackMs, Verstrichen(prog.TrackStartZeit, jetzt));
  StreckeZeigen(
      {f.lblInsgKopiePro, f.lblInsgKopieZeit, f.LblInsgKopieRestzeit, f.lblInsgKopieSpeed},
      insgesamt, prog.GrabFertigMs + trackMs, Verstrichen(prog.BurnStartZeit, jetzt));
}

// A scratched disc may be readable at the second or third try; a full disk stays full.
void GrabEreignisse::ACD_Failure(int code, const Text& text) {
  vantora::frmKomponenten& k = prog.frmKomponenten();
  if (prog.GrabAbbruch || text != kLesefehler) return;
  const bool voll = code == kFehlerPlattenVoll;
  if (!voll && k.LeseFehler < kVersuche) {
    ++k.LeseFehler;
    k.ACD.RetryRead();
    return;
  }
  prog.AppLog(L"ACD_Failure", L"!!!!");
  prog.MsgBoxen(voll ? prog.Text(5002) : prog.Text(9000) + ZahlText(k.AktTrack) + prog.Text(9001),
                kOk);
  k.ACD_Close();
  prog.GrabLaeuft = false;  // ends the wait for the track
}

}  // namespace vantora
