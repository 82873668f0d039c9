#include "medley/frmBeatCounter.h"

#include "app/katalog_dienst.h"
#include "app/programm.h"
#include "app/werte/zahlen.h"
#include "medley/frmMedley.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr int kTaktMs = 10;
constexpr std::int64_t kMsJeMinute = 60000;
constexpr int kMinBPM = 50, kMaxBPM = 280;
constexpr float kTag = 86400;  // seconds

}  // namespace

frmBeatCounter::frmBeatCounter(Programm& programm) : VtrFenster(programm, L"frmBeatCounter") {
  imgBeat.MouseDown = [this](int taste) {
    if (taste == kLeftButton) imgBeat_MouseDown();
  };
  imgBeat.MouseUp = [this](int /*taste*/) { imgBeat_MouseUp(); };
  imgBeat.TabStop = false;  // the space bar taps whichever control has the focus
  Knopf(imgStop, [this] { imgStop_MouseUp(); });
  Knopf(imgOK, [this] { imgOK_MouseUp(); });
  Knopf(imgAbbrechen, [this] { imgAbbrechen_MouseUp(); });
  Knopf(imgHelp, [this] { prog.Hilfe(Name); });
  tmrWaveAbspielen.Enabled = false;
  tmrWaveAbspielen.Interval = kTaktMs;
  tmrWaveAbspielen.OnTimer = [this] { tmrWaveAbspielen_Timer(); };
}

void frmBeatCounter::Form_Load() {
  FensterEinrichten();
  tmrWaveAbspielen.Enabled = true;
  Init_BeatCounter();
  Startzeit = static_cast<float>(prog.plattform.uhr.Timer());
  BalkenBreite = shpZeitanzeige.Width;
  BalkenStart = 0;
  shpZeitanzeige.Width = 0;
  shpZeitanzeige.Visible = true;
  prog.plattform.schleife.DoEvents();
}

void frmBeatCounter::Form_Unload() {
  tmrWaveAbspielen.Enabled = false;
  prog.Katalogfenster().PlayWaveNormal(L"");
}

void frmBeatCounter::Init_BeatCounter() {
  SetTexte();
}

void frmBeatCounter::SetTexte() {
  Caption = LoadResString(3200);
  lblTitel.Caption = LoadResString(3200);
  lblBeatDisplay.Caption = LoadResString(3203);
  lblRestzeit.Caption = LoadResString(3204);
  shpZeitBack.AccessibleName = LoadResString(3204);
  lblHinweis.Caption = LoadResString(3205);
  lblTempo.Caption = LoadResString(3206);
  Beschriften(lblButtCaption(0), imgOK, LoadResString(3201));
  Beschriften(lblButtCaption(1), imgStop, LoadResString(3202));
  Beschriften(lblButtCaption(2), imgAbbrechen, LoadResString(3207));
  imgBeat.ToolTipText = imgBeat.AccessibleName = LoadResString(3205);
  imgAbbrechen.ToolTipText = LoadResString(3208);
  imgHelp.ToolTipText = imgHelp.AccessibleName = LoadResString(3209);
  imgBeat.Picture = Text();
}

bool frmBeatCounter::Form_KeyDown(int taste, bool strg) {
  if (taste == kKeyEscape) {
    imgAbbrechen_MouseUp();
    return true;
  }
  if (taste != kKeySpace) return VtrFenster::Form_KeyDown(taste, strg);
  imgBeat_MouseDown();
  return true;
}

void frmBeatCounter::Form_KeyUp(int taste) {
  if (taste == kKeySpace) imgBeat_MouseUp();
}

// Two taps make a measurement. It uses the times of the tap events themselves, so a busy window
// measures as exactly as an idle one.
void frmBeatCounter::imgBeat_MouseDown() {
  if (TasteUnten) return;
  imgBeat.Picture = Text(L"BEATPIC");
  TasteUnten = true;
  prog.Umschalter = !prog.Umschalter;
  if (!prog.Umschalter) return;
  const std::int64_t jetzt = prog.plattform.schleife.EventMs();
  lblBeatDisplay.Caption = ZahlText(GanzDiv(kMsJeMinute, jetzt - prog.LetzterSchlag) * 2);
  prog.LetzterSchlag = jetzt;
}

void frmBeatCounter::imgBeat_MouseUp() {
  imgBeat.Picture = Text();
  TasteUnten = false;
}

void frmBeatCounter::BalkenAktualisieren(float Verstrichen, std::int32_t Gesamt,
                                         std::int32_t Breite, std::int32_t Start,
                                         std::int16_t Richtung, std::int32_t& Ergebnis) {
  const int vorzeichen = Richtung == -1 ? 1 : -1;
  const double anteil = Quotient(static_cast<double>(Verstrichen), Gesamt);
  Ergebnis = std::max(Ganz32(anteil * Breite * vorzeichen + Start), 0);
}

void frmBeatCounter::tmrWaveAbspielen_Timer() {
  if (Spielzeit <= 0) return;  // the window is still being opened
  float verstrichen = static_cast<float>(prog.plattform.uhr.Timer()) - Startzeit;
  if (verstrichen < 0) verstrichen += kTag;  // midnight has passed
  if (verstrichen < static_cast<float>(Spielzeit)) {
    std::int32_t breite = 0;
    BalkenAktualisieren(verstrichen, Spielzeit, BalkenBreite, BalkenStart, -1, breite);
    shpZeitanzeige.Width = breite;
    shpZeitBack.Percent = Ganz32(Quotient(breite * 100.0, BalkenBreite));
    return;
  }
  shpZeitanzeige.Width = BalkenBreite;
  shpZeitBack.Percent = 100;
  imgStop_MouseUp();
}

void frmBeatCounter::imgStop_MouseUp() {
  tmrWaveAbspielen.Enabled = false;
  prog.Katalogfenster().PlayWaveNormal(L"");
}

void frmBeatCounter::imgOK_MouseUp() {
  const double tempo = Val(lblBeatDisplay.Caption);
  if (tempo > kMaxBPM) lblBeatDisplay.Caption = ZahlText(kMaxBPM);
  if (tempo < kMinBPM) lblBeatDisplay.Caption = ZahlText(kMinBPM);
  if (prog.frmMedley.Geladen()) {
    vantora::frmMedley& medley = prog.frmMedley();
    medley.txtBPM.Text = lblBeatDisplay.Caption;
    medley.txtBPM_KeyPress(kKeyReturn);
  }
  Schliessen();
}

void frmBeatCounter::imgAbbrechen_MouseUp() {
  Schliessen();
}

// Closes the window and enables the medley window behind it.
void frmBeatCounter::Schliessen() {
  if (prog.frmMedley.Geladen()) prog.frmMedley().Window.Enabled = true;
  prog.frmBeatCounter.Entladen();
}

}  // namespace vantora
