#include "cdwriting/frmSchreibFortschritt.h"

#include "app/frmKomponenten.h"
#include "app/programm.h"
#include "cdwriting/fortschritt.h"
#include "cdwriting/frmCDBrennen.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr int kBildSchritte = 7;       // positions of the light in one run
constexpr double kBildTeil = 1.0 / 8;  // share of the strip's height that is visible at a time
constexpr int kBildMs = 100;
constexpr int kAuslaufMs = 4500;  // until a stopped drive is quiet

}  // namespace

frmSchreibFortschritt::frmSchreibFortschritt(Programm& programm)
    : VtrFenster(programm, L"frmSchreibFortschritt") {
  // An accidental key press must not cancel a burn or a read, so no control has the focus at first.
  FirstFocus = false;
  Knopf(imgAbbrechen, [this] { imgAbbrechen_MouseUp(); });
  tmrKnightRider.OnTimer = [this] { KnightRiderSchritt(); };
}

void frmSchreibFortschritt::Form_Load() {
  FensterEinrichten();
  init_frmSchreibFortschritt();
  SetTexte();
  constexpr int kRand = 75;  // twips around the background
  Window.Width = picBack.Width + kRand;
  Window.Height = picBack.Height + kRand;
  MitteSetzen(prog, *this);
  init_frmSchreibFortschritt();
  bKnightRider = true;
  KnightRider(imgKnightRider, *this);
}

void frmSchreibFortschritt::Form_Unload() {
  bKnightRider = false;
}

void frmSchreibFortschritt::SetTexte() {
  Caption = LoadResString(18200);
  lblInsgKopie.Caption = LoadResString(18201);
  lblAktKopie.Caption = LoadResString(18202);
  lblSonstiges.Caption = L"";
  lblFeld(0).Caption = LoadResString(30010);
  lblFeld(1).Caption = LoadResString(30011);
  lblFeld(2).Caption = LoadResString(30012);
  const auto hinweis = [this](Control& control, int nummer) {
    control.ToolTipText = LoadResString(nummer);
  };
  hinweis(lblSonstiges, 18400);
  hinweis(LblInsgKopieRestzeit, 18401);
  hinweis(lblInsgKopieSpeed, 18402);
  hinweis(lblInsgKopieZeit, 18403);
  hinweis(LblAktKopieRestzeit, 18404);
  hinweis(lblAktKopiePro, 18405);
  hinweis(lblAktKopieSpeed, 18406);
  hinweis(lblAktKopieZeit, 18407);
  hinweis(imgKnightRider, 18409);
  hinweis(lblInsgKopiePro, 18410);
  shpAktRahmen.AccessibleName = LoadResString(18405);
  shpInsgRahmen.AccessibleName = LoadResString(18410);
}

void frmSchreibFortschritt::init_frmSchreibFortschritt() {
  bKnightRider = false;
  shpAktKopie.Width = 1;
  shpInsgKopie.Width = 1;
  AnteileAnsagen();
  imgAbbrechen.ToolTipText = LoadResString(18408);
  KnopfBild(imgAbbrechen);
  lblAktKopie.Caption = LoadResString(18202);
  Beschriften(lblButtCaption(0), imgAbbrechen, LoadResString(5));
  lblInsgKopie.Caption = LoadResString(18201);
  for (Label* feld : {&lblAktKopiePro, &LblAktKopieRestzeit, &lblAktKopieSpeed, &lblAktKopieZeit,
                      &lblInsgKopiePro, &LblInsgKopieRestzeit, &lblInsgKopieSpeed,
                      &lblInsgKopieZeit, &lblKopieInsgAnz, &lblKopieNr, &lblKopieTrackNr}) {
    feld->Caption = L"--";
  }
  const bool einStueck = prog.FortschrittModus == kModusBrennen && prog.frmCDBrennen.Geladen() &&
                         prog.frmCDBrennen().ModusDAO;  // such a drive does not report its tracks
  TrackZeigen(!einStueck);
}

void frmSchreibFortschritt::TrackZeigen(bool sichtbar) {
  for (Control* teil :
       std::initializer_list<Control*>{&lblAktKopie, &shpAktRahmen, &shpAktKopie, &lblAktKopiePro,
                                       &lblAktKopieSpeed, &lblAktKopieZeit, &LblAktKopieRestzeit,
                                       &lblKopieTrackNr, &lblKopieNr, &lblKopieInsgAnz}) {
    teil->Visible = sichtbar;
  }
}

void frmSchreibFortschritt::ReadComplete() {
  prog.plattform.schleife.Beep();
  lblAktKopiePro.Caption = L"100,00%";
  lblInsgKopiePro.Caption = L"100,00%";
  CloseMe(false);
}

void frmSchreibFortschritt::CloseMe(bool abbruch) {
  EventLoop& schleife = prog.plattform.schleife;
  vantora::frmKomponenten& komponenten = prog.frmKomponenten();
  schleife.MousePointer(Pointer::Hourglass);
  lblSonstiges.Caption = LoadResString(abbruch ? 18600 : 18601);
  if (abbruch) komponenten.Abgebrochen = true;
  schleife.DoEvents();
  switch (prog.FortschrittModus) {
    case kModusMp3:
      prog.plattform.mp3.Stop();
      komponenten.KonvertierungAktiv = false;
      prog.frmSchreibFortschritt.Entladen();
      break;
    case kModusGrab:
      prog.GrabAbbruch = true;
      break;
    case kModusBrennen:
      if (abbruch) prog.plattform.mcd.StopBurn();
      prog.Pausieren(kAuslaufMs);
      komponenten.BrennLaeuft = false;
      prog.frmSchreibFortschritt.Entladen();
      break;
    default:
      break;
  }
  if (prog.FortschrittModus != kModusGrab) schleife.MousePointer(Pointer::Normal);
}

void frmSchreibFortschritt::imgAbbrechen_MouseUp() {
  KnopfBild(imgAbbrechen);
  const bool gebrannt =
      prog.FortschrittModus == kModusBrennen && !prog.frmKomponenten().BrennLaeuft;
  if (!imgAbbrechen.Enabled || gebrannt) return;
  imgAbbrechen.Enabled = false;  // pressing again would not stop the drive sooner
  if (prog.FortschrittModus == kModusBrennen && prog.frmKomponenten().Vergleich) {
    prog.AppLog(L"StopVerify", L"User cancel comparison!");
    prog.plattform.mcd.StopVerify();
    return;
  }
  CloseMe(true);
}

bool frmSchreibFortschritt::Form_KeyDown(int taste, bool strg) {
  if (taste != kKeyEscape) return VtrFenster::Form_KeyDown(taste, strg);
  imgAbbrechen_MouseUp();
  return true;
}

void frmSchreibFortschritt::KnightRider(PictureButton& bild, frmSchreibFortschritt& fenster) {
  if (fenster.laeuftIn_ != nullptr) return;
  fenster.laeuftIn_ = &bild;
  fenster.schritt_ = 0;
  bild.ClipHeight = kBildTeil;
  bild.ClipTop = 0.0;
  fenster.tmrKnightRider.Interval = kBildMs;
}

// For screen readers. The jobs set only the bars, each in its own way.
void frmSchreibFortschritt::AnteileAnsagen() {
  const int ganz = std::max(BalkenLaenge(1.0, prog.plattform.bildschirm.TwipsPerPixelX()), 1);
  const auto anteil = [ganz](const Shape& balken) {
    return std::clamp(balken.Width() * 100 / ganz, 0, 100);
  };
  shpAktRahmen.Percent = anteil(shpAktKopie);
  shpInsgRahmen.Percent = anteil(shpInsgKopie);
}

void frmSchreibFortschritt::KnightRiderSchritt() {
  AnteileAnsagen();
  if (laeuftIn_ == nullptr) return;
  if (!bKnightRider) {
    laeuftIn_ = nullptr;
    tmrKnightRider.Interval = 0;
    return;
  }
  ++schritt_;
  laeuftIn_->ClipTop = schritt_ * kBildTeil;
  if (schritt_ < kBildSchritte) return;
  PictureButton& bild = *laeuftIn_;
  laeuftIn_ = nullptr;
  KnightRider(bild, *this);
}

}  // namespace vantora
