// The writer's events while a disc is burnt, and what the progress window shows of them. They are
// members of frmKomponenten, which receives all events of the devices.

#include "app/frmMBox.h"
#include "app/programm.h"
#include "app/werte/feld.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"
#include "cdinput/frmKomponenten.h"
#include "cdwriting/fortschritt.h"
#include "cdwriting/frmCDBrennen.h"
#include "cdwriting/frmSchreibFortschritt.h"

#include <algorithm>
#include <cmath>

namespace vantora {

namespace {

constexpr double kMBJeSekunde = 0.15;  // audio at single speed
constexpr int kFehlerOhneDisc = 802;
constexpr int kFehlerPauseMs = 2500;

}  // namespace

void frmKomponenten::MCD_ActTrack(int track) {
  AktTrack = Ganz16(track);
  prog.AppLog(L"MCD_ActTrack", L"ChangeToTrack:" + ZahlText(track));
}

void frmKomponenten::MCD_TrackPercent(int percent) {
  if (!prog.frmSchreibFortschritt.Geladen()) return;
  Weiter([&] {
    vantora::frmSchreibFortschritt& f = prog.frmSchreibFortschritt();
    if (f.Window.Enabled) return;
    prog.plattform.schleife.MousePointer(Pointer::ArrowHourglass);
    f.Window.Enabled = true;
  });
  if (prog.frmCDBrennen().ModusTAO) {
    ProzentTAO(percent);
  } else {
    ProzentDAO(percent);
  }
}

double frmKomponenten::GesamtMs() const {
  double gesamt = 0;
  for (std::size_t i = 1; i < prog.Katalog.size(); ++i) {
    const bool letzter = i + 1 == prog.Katalog.size();
    gesamt += Val(prog.Katalog[i].Laenge.Ganz()) + (letzter ? 0 : prog.Katalog[i].Pause * 1000.0);
  }
  return gesamt;
}

double frmKomponenten::FertigMs(int percent) const {
  double fertig = 0;
  const auto aktuell = static_cast<std::size_t>(AktTrack);
  for (std::size_t i = 1; i < aktuell && i < prog.Katalog.size(); ++i) {
    fertig += Val(prog.Katalog[i].Laenge.Ganz()) + prog.Katalog[i].Pause * 1000.0;
  }
  return fertig + percent / 100.0 * Val(Element(prog.Katalog, AktTrack).Laenge.Ganz());
}

void frmKomponenten::NeuenTrackZeigen() {
  vantora::frmSchreibFortschritt& f = prog.frmSchreibFortschritt();
  const auto anzahl = static_cast<double>(prog.BrennDateien.size()) - 1;
  prog.TrackStartZeit = static_cast<float>(prog.plattform.uhr.Timer());
  f.shpAktKopie.Width = 1;
  f.shpInsgKopie.Width =
      static_cast<int>(Abgeschnitten(Quotient(AktTrack, anzahl) * kBalkenBreite));
  AngezeigterTrack = AktTrack;
  f.lblSonstiges.Caption =
      LoadResString(9607) + DateiNameOhnePfad(Element(prog.BrennDateien, AktTrack));
  f.lblSonstiges.Visible = true;
  f.lblKopieTrackNr.Caption = ZahlText(AktTrack);
  f.lblKopieNr.Caption = ZahlText(AktTrack);
}

// Each statement may fail without stopping the next. At 0 percent, and for a track without length,
// speed and remaining time cannot be computed, and their labels stay unchanged.
void frmKomponenten::ProzentTAO(int percent) {
  vantora::frmSchreibFortschritt& f = prog.frmSchreibFortschritt();
  const double twips = prog.plattform.bildschirm.TwipsPerPixelX();
  const double jetzt = prog.plattform.uhr.Timer();
  const double seitStart = Verstrichen(prog.BurnStartZeit, jetzt);
  if (AktTrack != AngezeigterTrack) Weiter([&] { NeuenTrackZeigen(); });
  const double seitTrack = Verstrichen(prog.TrackStartZeit, jetzt);
  f.lblAktKopiePro.Caption = ZahlText(percent) + L"%";
  Weiter([&] { BalkenVerlaengern(f.shpAktKopie, percent / 100.0, twips); });
  Weiter([&] { f.lblInsgKopieZeit.Caption = DauerText(seitStart * 1000); });
  Weiter([&] { f.lblAktKopieZeit.Caption = DauerText(seitTrack * 1000); });
  Weiter([&] {
    const double groesse = Element(prog.Katalog, AktTrack).GroesseMB;
    const double fertigMB = percent / 100.0 * groesse;
    const double einfach = fertigMB / kMBJeSekunde;
    const double rest = Quotient((groesse - fertigMB) / kMBJeSekunde, Quotient(einfach, seitTrack));
    f.LblAktKopieRestzeit.Caption = DauerText(rest * 1000);
  });
  double anteil = 0, fertig = 0;
  Weiter([&] {
    fertig = FertigMs(percent);
    anteil = Quotient(fertig, GesamtMs());
  });
  Weiter([&] { f.lblInsgKopiePro.Caption = ZahlText(Abgeschnitten(anteil * 100)) + L"%"; });
  if (anteil > 0) {
    Weiter([&] {
      const double rest = std::floor(seitStart / anteil - seitStart);
      f.LblInsgKopieRestzeit.Caption = DauerText(rest * 1000);
    });
    Weiter([&] {
      f.lblInsgKopieSpeed.Caption = TempoText(Quotient(fertig, seitStart / anteil * 1000));
    });
  }
  if (percent > 0) {
    Weiter([&] {
      const double laenge = Val(Element(prog.Katalog, AktTrack).Laenge.Ganz());
      f.lblAktKopieSpeed.Caption =
          TempoText(Quotient(laenge, seitTrack / (percent / 100.0) * 1000));
    });
  }
  Weiter([&] { f.shpInsgKopie.Width = BalkenLaenge(anteil, twips); });
}

void frmKomponenten::ProzentDAO(int percent) {
  vantora::frmSchreibFortschritt& f = prog.frmSchreibFortschritt();
  const double twips = prog.plattform.bildschirm.TwipsPerPixelX();
  const double seitStart = Verstrichen(prog.BurnStartZeit, prog.plattform.uhr.Timer());
  const double anteil = percent / 100.0;
  f.lblSonstiges.Caption = LoadResString(9608);
  f.lblInsgKopiePro.Caption = ZahlText(percent) + L"%";
  Weiter([&] { BalkenVerlaengern(f.shpInsgKopie, anteil, twips); });
  Weiter([&] { f.lblInsgKopieZeit.Caption = DauerText(seitStart * 1000); });
  if (percent <= 0) return;
  Weiter(
      [&] { f.LblInsgKopieRestzeit.Caption = DauerText((seitStart / anteil - seitStart) * 1000); });
  Weiter([&] {
    f.lblInsgKopieSpeed.Caption =
        TempoText(Quotient(anteil * GesamtMs(), seitStart / anteil * 1000));
  });
}

void frmKomponenten::MCD_InfoMessage(int /*code*/, const Text& text) {
  prog.AppLog(L"MCD_InfoMessage", text);
  const Text anfang = Ucase(Links(text, 3));
  const int meldung = anfang == L"CLO" ? 9600 : anfang == L"OPE" ? 9601 : 0;
  const auto aktuell = static_cast<std::size_t>(std::max<std::int16_t>(AktTrack, 1));
  if (meldung != 0 && prog.frmSchreibFortschritt.Geladen() && aktuell < prog.BrennDateien.size()) {
    prog.frmSchreibFortschritt().lblSonstiges.Caption =
        LoadResString(meldung) + DateiNameOhnePfad(prog.BrennDateien[aktuell]);
  }
  prog.plattform.schleife.DoEvents();
}

void frmKomponenten::MCD_StatusChange(int state) {
  if (!prog.frmCDBrennen.Geladen() || prog.BrennerFensterGeschlossen) return;
  vantora::frmCDBrennen& brennen = prog.frmCDBrennen();
  if (!brennen.Visible()) return;
  int meldung = 9605;
  if (state == kMcdDiscInserted) meldung = 9602;
  if (state == kMcdChecking) meldung = 9603;
  if (state == kMcdChecked) meldung = 9604;
  brennen.lblStatusBurner.Caption = LoadResString(meldung);
}

// Lead-in, lead-out and fixating can't be stopped, so the window is disabled until data is written
// again.
void frmKomponenten::MCD_WriteLeadIn(int mode) {
  prog.plattform.schleife.MousePointer(Pointer::Hourglass);
  prog.AppLog(L"MCD_WriteLeadIn", L"Mode:" + ZahlText(mode));
  if (!prog.frmSchreibFortschritt.Geladen()) return;
  prog.frmSchreibFortschritt().Window.Enabled = false;
  prog.frmSchreibFortschritt().lblSonstiges.Caption = LoadResString(9610);
}

void frmKomponenten::MCD_WriteLeadOut(int mode) {
  prog.plattform.schleife.MousePointer(Pointer::Hourglass);
  prog.AppLog(L"MCD_WriteLeadOut", L"Mode:" + ZahlText(mode));
  if (!prog.frmSchreibFortschritt.Geladen()) return;
  prog.frmSchreibFortschritt().Window.Enabled = false;
  prog.frmSchreibFortschritt().lblSonstiges.Caption = LoadResString(9611);
}

void frmKomponenten::MCD_Fixating() {
  prog.AppLog(L"MCD_Fixating", L"");
  prog.plattform.schleife.MousePointer(Pointer::Hourglass);
  if (!prog.frmSchreibFortschritt.Geladen()) return;
  prog.frmSchreibFortschritt().lblSonstiges.Caption = LoadResString(9609);
  prog.frmSchreibFortschritt().Window.Enabled = false;
}

void frmKomponenten::MCD_BurningProcessComplete(int success) {
  prog.plattform.schleife.MousePointer(Pointer::Normal);
  if (prog.frmSchreibFortschritt.Geladen()) prog.frmSchreibFortschritt().Window.Enabled = true;
  prog.AppLog(L"MCD_BurningProcessCompletet", L"Success:" + ZahlText(success));
  BrennLaeuft = false;
}

void frmKomponenten::MCD_UserStop() {
  prog.AppLog(L"MCD_UserStop", L"User cancel burn process!");
  MCD_BurningProcessComplete(0);
}

void frmKomponenten::MCD_Failure(int code, const Text& /*text*/) {
  EventLoop& schleife = prog.plattform.schleife;
  if (code == kFehlerOhneDisc) MCD_BurningProcessComplete(0);
  prog.frmMBox.Entladen();
  schleife.MousePointer(Pointer::Normal);
  prog.AppLog(L"MCD_Failure", L"!!!!");
  prog.MsgBoxen(LoadResString(9004) + ZahlText(code) + L"\r" + LoadResString(9010), kOk);
  schleife.MousePointer(Pointer::Hourglass);
  schleife.Sleep(kFehlerPauseMs);
  schleife.DoEvents();
  Abgebrochen = true;
  schleife.MousePointer(Pointer::Normal);
  MCD_BurningProcessComplete(code);
}

void frmKomponenten::MCD_ScsiEvents(int /*first*/, int /*second*/, int code, int /*fourth*/,
                                    const Text& text) {
  prog.AppLog(L"MCD_ScsiEvents", L"");
  prog.MsgBoxen(LoadResString(9005) + kZeilenEnde + LoadResString(9002) + ZahlText(code) +
                    kZeilenEnde + LoadResString(9003) + text,
                kOk);
  Abgebrochen = true;
  MCD_BurningProcessComplete(0);
}

void frmKomponenten::MCD_ASPIEvent(int code, const Text& text) {
  prog.AppLog(L"MCD_ASPIEvent", L"Error:" + ZahlText(code));
  prog.MsgBoxen(LoadResString(9006) + ZahlText(code) + kZeilenEnde + LoadResString(9002) +
                    ZahlText(code) + LoadResString(9003) + text,
                kOk);
  if (prog.frmSchreibFortschritt.Geladen()) {
    prog.frmSchreibFortschritt().lblSonstiges.Visible = false;
  }
  Abgebrochen = true;
  MCD_BurningProcessComplete(0);
}

}  // namespace vantora
