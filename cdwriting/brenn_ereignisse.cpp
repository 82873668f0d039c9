#include "cdwriting/brenn_ereignisse.h"

#include "app/frmKomponenten.h"
#include "app/frmMBox.h"
#include "app/programm.h"
#include "app/werte/feld.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"
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

vantora::frmKomponenten& BrennEreignisse::Komponenten() const {
  return prog.frmKomponenten();
}

// For the events after which the run goes on or ends: it must do so without a trace, too.
void BrennEreignisse::Spur(const Text& wo, const Text& was) {
  Weiter([&] { prog.AppLog(wo, was); });
}

void BrennEreignisse::MCD_ActTrack(int track) {
  Komponenten().AktTrack = Ganz16(track);
  prog.AppLog(L"MCD_ActTrack", L"ChangeToTrack:" + ZahlText(track));
}

void BrennEreignisse::MCD_TrackPercent(int percent) {
  if (!prog.frmSchreibFortschritt.Geladen()) return;
  Weiter([&] {
    vantora::frmSchreibFortschritt& f = prog.frmSchreibFortschritt();
    if (f.Window.Enabled) return;
    prog.plattform.schleife.MousePointer(Pointer::ArrowHourglass);
    f.Window.Enabled = true;
  });
  if (Komponenten().Vergleich) {
    VergleichZeigen(L" (" + ZahlText(percent) + L"%)");
  } else if (prog.frmCDBrennen().ModusTAO) {
    ProzentTAO(percent);
  } else {
    ProzentDAO(percent);
  }
}

double BrennEreignisse::GesamtMs() const {
  double gesamt = 0;
  for (std::size_t i = 1; i < prog.Katalog.size(); ++i) {
    const bool letzter = i + 1 == prog.Katalog.size();
    gesamt += Val(prog.Katalog[i].Laenge.Ganz()) + (letzter ? 0 : prog.Katalog[i].Pause * 1000.0);
  }
  return gesamt;
}

double BrennEreignisse::FertigMs(int percent) const {
  double fertig = 0;
  const int track = Komponenten().AktTrack;
  for (std::size_t i = 1; i < static_cast<std::size_t>(track) && i < prog.Katalog.size(); ++i) {
    fertig += Val(prog.Katalog[i].Laenge.Ganz()) + prog.Katalog[i].Pause * 1000.0;
  }
  return fertig + percent / 100.0 * Val(Element(prog.Katalog, track).Laenge.Ganz());
}

void BrennEreignisse::NeuenTrackZeigen() {
  const std::int16_t track = Komponenten().AktTrack;
  vantora::frmSchreibFortschritt& f = prog.frmSchreibFortschritt();
  const auto anzahl = static_cast<double>(prog.BrennDateien.size()) - 1;
  prog.TrackStartZeit = static_cast<float>(prog.plattform.uhr.Timer());
  f.shpAktKopie.Width = 1;
  f.shpInsgKopie.Width = static_cast<int>(Abgeschnitten(Quotient(track, anzahl) * kBalkenBreite));
  Komponenten().AngezeigterTrack = track;
  f.lblSonstiges.Caption = prog.Text(9607) + DateiNameOhnePfad(Element(prog.BrennDateien, track));
  f.lblSonstiges.Visible = true;
  f.lblKopieTrackNr.Caption = ZahlText(track);
  f.lblKopieNr.Caption = ZahlText(track);
}

// Each statement may fail without stopping the next. At 0 percent, and for a track without length,
// speed and remaining time cannot be computed, and their labels stay unchanged.
void BrennEreignisse::ProzentTAO(int percent) {
  const int track = Komponenten().AktTrack;
  vantora::frmSchreibFortschritt& f = prog.frmSchreibFortschritt();
  const double twips = prog.plattform.bildschirm.TwipsPerPixelX();
  const double jetzt = prog.plattform.uhr.Timer();
  const double seitStart = Verstrichen(prog.BurnStartZeit, jetzt);
  if (track != Komponenten().AngezeigterTrack) Weiter([&] { NeuenTrackZeigen(); });
  const double seitTrack = Verstrichen(prog.TrackStartZeit, jetzt);
  f.lblAktKopiePro.Caption = ZahlText(percent) + L"%";
  Weiter([&] { BalkenVerlaengern(f.shpAktKopie, percent / 100.0, twips); });
  Weiter([&] { f.lblInsgKopieZeit.Caption = DauerText(seitStart * 1000); });
  Weiter([&] { f.lblAktKopieZeit.Caption = DauerText(seitTrack * 1000); });
  Weiter([&] {
    const double groesse = Element(prog.Katalog, track).GroesseMB;
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
      const double laenge = Val(Element(prog.Katalog, track).Laenge.Ganz());
      f.lblAktKopieSpeed.Caption =
          TempoText(Quotient(laenge, seitTrack / (percent / 100.0) * 1000));
    });
  }
  Weiter([&] { f.shpInsgKopie.Width = BalkenLaenge(anteil, twips); });
}

void BrennEreignisse::ProzentDAO(int percent) {
  vantora::frmSchreibFortschritt& f = prog.frmSchreibFortschritt();
  const double twips = prog.plattform.bildschirm.TwipsPerPixelX();
  const double seitStart = Verstrichen(prog.BurnStartZeit, prog.plattform.uhr.Timer());
  const double anteil = percent / 100.0;
  f.lblSonstiges.Caption = prog.Text(9608);
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

void BrennEreignisse::MCD_InfoMessage(int /*code*/, const Text& text) {
  prog.AppLog(L"MCD_InfoMessage", text);
  const Text anfang = Ucase(Links(text, 3));
  const int meldung = anfang == L"CLO" ? 9600 : anfang == L"OPE" ? 9601 : 0;
  const auto aktuell = static_cast<std::size_t>(std::max<std::int16_t>(Komponenten().AktTrack, 1));
  if (meldung != 0 && prog.frmSchreibFortschritt.Geladen() && aktuell < prog.BrennDateien.size()) {
    prog.frmSchreibFortschritt().lblSonstiges.Caption =
        prog.Text(meldung) + DateiNameOhnePfad(prog.BrennDateien[aktuell]);
  }
  prog.plattform.schleife.DoEvents();
}

void BrennEreignisse::MCD_StatusChange(int state) {
  if (!prog.frmCDBrennen.Geladen() || prog.BrennerFensterGeschlossen) return;
  vantora::frmCDBrennen& brennen = prog.frmCDBrennen();
  if (!brennen.Visible()) return;
  int meldung = 9605;
  if (state == kMcdDiscInserted) meldung = 9602;
  if (state == kMcdChecking) meldung = 9603;
  if (state == kMcdChecked) meldung = 9604;
  brennen.lblStatusBurner.Caption = prog.Text(meldung);
}

// Lead-in, lead-out and fixating can't be stopped, so the window is disabled until data is written
// again.
void BrennEreignisse::MCD_WriteLeadIn(int mode) {
  prog.plattform.schleife.MousePointer(Pointer::Hourglass);
  prog.AppLog(L"MCD_WriteLeadIn", L"Mode:" + ZahlText(mode));
  if (!prog.frmSchreibFortschritt.Geladen()) return;
  prog.frmSchreibFortschritt().Window.Enabled = false;
  prog.frmSchreibFortschritt().lblSonstiges.Caption = prog.Text(9610);
}

void BrennEreignisse::MCD_WriteLeadOut(int mode) {
  prog.plattform.schleife.MousePointer(Pointer::Hourglass);
  prog.AppLog(L"MCD_WriteLeadOut", L"Mode:" + ZahlText(mode));
  if (!prog.frmSchreibFortschritt.Geladen()) return;
  prog.frmSchreibFortschritt().Window.Enabled = false;
  prog.frmSchreibFortschritt().lblSonstiges.Caption = prog.Text(9611);
}

void BrennEreignisse::MCD_Fixating() {
  prog.AppLog(L"MCD_Fixating", L"");
  prog.plattform.schleife.MousePointer(Pointer::Hourglass);
  if (!prog.frmSchreibFortschritt.Geladen()) return;
  prog.frmSchreibFortschritt().lblSonstiges.Caption = prog.Text(9609);
  prog.frmSchreibFortschritt().Window.Enabled = false;
}

// The disc is complete, so the window is enabled again: a cancel ends only the comparison.
void BrennEreignisse::MCD_Verify(int track, int state) {
  Komponenten().Vergleich = true;
  if (state == kMcdVerifyBegins) {
    prog.plattform.schleife.MousePointer(Pointer::ArrowHourglass);
    if (!prog.frmSchreibFortschritt.Geladen()) return;
    Komponenten().AktTrack = Ganz16(track);
    prog.frmSchreibFortschritt().Window.Enabled = true;
    return VergleichZeigen(L"");
  }
  const Text ergebnis = state == kMcdVerifySame      ? L"same"
                        : state == kMcdVerifyDiffers ? L"different"
                                                     : L"failed";
  Spur(L"MCD_Verify", L"Track:" + ZahlText(track) + L" Result:" + ergebnis);
  if (state != kMcdVerifySame) Komponenten().Abweichungen.emplace_back(track, state);
}

void BrennEreignisse::VergleichZeigen(const Text& anteil) {
  prog.frmSchreibFortschritt().lblSonstiges.Caption =
      prog.Text(30129) + ZahlText(Komponenten().AktTrack) + anteil;
}

void BrennEreignisse::MCD_BurningProcessComplete(int success) {
  prog.plattform.schleife.MousePointer(Pointer::Normal);
  if (prog.frmSchreibFortschritt.Geladen()) prog.frmSchreibFortschritt().Window.Enabled = true;
  Spur(L"MCD_BurningProcessCompletet", L"Success:" + ZahlText(success));
  Komponenten().BrennLaeuft = false;
  Komponenten().Vergleich = false;
}

void BrennEreignisse::MCD_UserStop() {
  Spur(L"MCD_UserStop", L"User cancel burn process!");
  MCD_BurningProcessComplete(0);
}

void BrennEreignisse::MCD_Failure(int code, const Text& /*text*/) {
  EventLoop& schleife = prog.plattform.schleife;
  if (code == kFehlerOhneDisc) MCD_BurningProcessComplete(0);
  prog.frmMBox.Entladen();
  schleife.MousePointer(Pointer::Normal);
  Spur(L"MCD_Failure", L"!!!!");
  prog.MsgBoxen(prog.Text(9004) + ZahlText(code) + L"\r" + prog.Text(9010), kOk);
  schleife.MousePointer(Pointer::Hourglass);
  schleife.Sleep(kFehlerPauseMs);
  schleife.DoEvents();
  Komponenten().Abgebrochen = true;
  schleife.MousePointer(Pointer::Normal);
  MCD_BurningProcessComplete(code);
}

void BrennEreignisse::MCD_ScsiEvents(int /*first*/, int /*second*/, int code, int /*fourth*/,
                                     const Text& text) {
  Spur(L"MCD_ScsiEvents", L"");
  prog.MsgBoxen(prog.Text(9005) + kZeilenEnde + prog.Text(9002) + ZahlText(code) + kZeilenEnde +
                    prog.Text(9003) + text,
                kOk);
  Komponenten().Abgebrochen = true;
  MCD_BurningProcessComplete(0);
}

void BrennEreignisse::MCD_ASPIEvent(int code, const Text& text) {
  Spur(L"MCD_ASPIEvent", L"Error:" + ZahlText(code));
  prog.MsgBoxen(prog.Text(9006) + ZahlText(code) + kZeilenEnde + prog.Text(9002) + ZahlText(code) +
                    prog.Text(9003) + text,
                kOk);
  if (prog.frmSchreibFortschritt.Geladen()) {
    prog.frmSchreibFortschritt().lblSonstiges.Visible = false;
  }
  Komponenten().Abgebrochen = true;
  MCD_BurningProcessComplete(0);
}

}  // namespace vantora
