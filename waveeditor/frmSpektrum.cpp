#include "waveeditor/frmSpektrum.h"

#include "app/programm.h"
#include "app/werte/zahlen.h"
#include "waveeditor/spektrum_bild.h"

namespace vantora {

namespace {

constexpr int kRand = 120;  // twips, above and below the button

}  // namespace

frmSpektrum::frmSpektrum(Programm& programm) : VtrFenster(programm, L"frmSpektrum") {
  Knopf(cmdOK, [this] { cmdOK_Click(); });
}

void frmSpektrum::Form_Load() {
  FensterEinrichten();
  Anordnen();
  SetTexte();
}

void frmSpektrum::Anordnen() {
  Display& bildschirm = prog.plattform.bildschirm;
  const int breite = Ganz32(bildschirm.Width() / bildschirm.Scale());
  const int hoehe = Ganz32(bildschirm.Height() / bildschirm.Scale());
  FillsScreen = true;
  Window.Left = 0;
  Window.Top = 0;
  Window.Width = breite;
  Window.Height = hoehe;
  Label& schild = lblButtCaption(0);
  const int nachRechts = schild.Left - cmdOK.Left, nachUnten = schild.Top - cmdOK.Top;
  cmdOK.Left = breite / 2 - cmdOK.Width / 2;
  cmdOK.Top = hoehe - kRand - cmdOK.Height;
  schild.Left = cmdOK.Left + nachRechts;
  schild.Top = cmdOK.Top + nachUnten;
  picSpektrum.Left = 0;
  picSpektrum.Top = 0;
  picSpektrum.Width = breite;
  picSpektrum.Height = cmdOK.Top - kRand;
}

void frmSpektrum::SetTexte() {
  Caption = LoadResString(30182);
  picSpektrum.AccessibleName = Caption;
  cmdOK.ToolTipText = LoadResString(19400);
  Beschriften(lblButtCaption(0), cmdOK, TextErsetzen(LoadResString(19200), L"&", L""));
}

bool frmSpektrum::Form_KeyDown(int taste, bool strg) {
  if (taste != kKeyReturn && taste != kKeyEscape) return VtrFenster::Form_KeyDown(taste, strg);
  cmdOK_Click();
  return true;
}

void frmSpektrum::picSpektrum_Paint() {
  EventLoop& schleife = prog.plattform.schleife;
  Window.Enabled = false;
  schleife.MousePointer(Pointer::Hourglass);
  picSpektrum.Cls();
  Zeichnen();
  schleife.MousePointer(Pointer::Normal);
  Window.Enabled = true;
}

// The window stays empty when the file is gone or is no wave file any more.
void frmSpektrum::Zeichnen() {
  EventLoop& schleife = prog.plattform.schleife;
  SpektrumBild bild(prog);
  if (!bild.Lesen(prog.SpektrumDatei, prog.SpektrumStart, prog.SpektrumLaenge)) return;
  bild.Umrechnen();
  schleife.DoEvents();
  bild.Zeichnen(picSpektrum);
  schleife.DoEvents();
}

void frmSpektrum::cmdOK_Click() {
  prog.frmSpektrum.Entladen();
}

}  // namespace vantora
