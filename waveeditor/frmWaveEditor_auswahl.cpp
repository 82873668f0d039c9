// What is selected on the picture: a cursor or a range, by the mouse or by the keyboard.

#include "app/programm.h"
#include "app/werte/zahlen.h"
#include "waveeditor/frmWaveEditor.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr int kSeiten = 10;  // steps of the keys for pages in the width of the window
constexpr int kUndo = 6;     // of the transport's buttons

}  // namespace

// The marker is at least a pixel wide, and a cursor when it is no wider.
void frmWaveEditor::MarkerSetzen(int links, int breite) {
  shpMarker.Left = links;
  shpMarker.Width = std::max(breite, PixelTwips().X);
  MarkerStartX = static_cast<float>(links);
  ZugX = links + breite;
}

void frmWaveEditor::PositionSetzen(double x) {
  linPosition.Left = Ganz32(x);
}

void frmWaveEditor::picWave_MouseDown(int x) {
  const int links = std::clamp(x, 0, picWaveBack.Width());
  MarkerSetzen(links, 0);
  shpMarker.Visible = true;
  marker_update();
}

void frmWaveEditor::picWave_MouseMove(int taste, int x) {
  if (taste != kLeftButton) return;
  const int stelle = std::clamp(x, 0, picWaveBack.Width());
  const int anfang = Ganz32(MarkerStartX);
  if (stelle > anfang) MarkerSetzen(anfang, stelle - anfang);
  if (stelle < anfang) MarkerSetzen(stelle, anfang - stelle);
  MarkerStartX = static_cast<float>(anfang);
  ZugX = stelle;
  marker_update();
}

void frmWaveEditor::picWave_MouseUp() {
  SpektrumNeuStarten();
}

void frmWaveEditor::SpektrumNeuStarten() {
  tmr3D.Restart();
}

void frmWaveEditor::cmdAllesAuswaehlen_Click() {
  if (Spielt || ZoomFaktor != 1) return;
  MarkerSetzen(0, picWaveBack.Width);
  shpMarker.Visible = true;
  marker_update();
  picWave_MouseUp();
}

void frmWaveEditor::cmdAuswahlAufheben_Click() {
  shpMarker.Visible = false;
  MarkerSetzen(0, 0);
  marker_update();
}

void frmWaveEditor::marker_reset() {
  MarkerSetzen(0, 0);
  marker_update();
}

void frmWaveEditor::marker_update() {
  const auto r = static_cast<float>(Quotient(Laenge(), picWaveBack.Width));
  // In a long file the single precision of the ratio could reach a few frames behind its end.
  const auto frames = [&](int x) { return std::min(Ganz32(static_cast<double>(x) * r), Laenge()); };
  NurCursor = shpMarker.Width == PixelTwips().X;
  if (NurCursor) {
    CursorPos = frames(shpMarker.Left);
    MarkerAnfang = MarkerEnde = 0;
    PositionSetzen(shpMarker.Left);
  } else {
    MarkerAnfang = frames(shpMarker.Left);
    MarkerEnde = frames(shpMarker.Left + shpMarker.Width);
  }
  lblMarkerAnfang.Caption = SmpToTime(NurCursor ? CursorPos : MarkerAnfang);
  lblMarkerEnde.Caption = SmpToTime(NurCursor ? CursorPos : MarkerEnde);
  lblMarkerDelta.Caption = SmpToTime(NurCursor ? 0 : MarkerEnde - MarkerAnfang);
}

// ---- the same by the keyboard ----

// Arrows move the cursor by a pixel, so the closer the view, the finer they go; with Shift they
// drag. They do what the mouse would do at the place that they lead to.
void frmWaveEditor::picWave_KeyDown(int taste) {
  if (picWaveBack.ControlHeld) return BefehlsTaste(taste);
  const int pixel = PixelTwips().X, seite = picWave.Width / kSeiten;
  switch (taste) {
    case kKeyLeft:
      return ZugBis(ZugX - pixel);
    case kKeyRight:
      return ZugBis(ZugX + pixel);
    case kKeyPageUp:
      return ZugBis(ZugX - seite);
    case kKeyPageDown:
      return ZugBis(ZugX + seite);
    case kKeyHome:
      return ZugBis(0);
    case kKeyEnd:
      return ZugBis(picWaveBack.Width);
    case kKeySpace:
      return imgSteuerung_MouseUp(Spielt ? 1 : 0);
    default:
      return;
  }
}

void frmWaveEditor::BefehlsTaste(int taste) {
  switch (taste) {
    case 'A':
      return cmdAllesAuswaehlen_Click();
    case 'C':
      return Bearbeiten(&frmWaveEditor::imgCopy_MouseUp);
    case 'X':
      return Bearbeiten(&frmWaveEditor::imgCut_MouseUp);
    case 'V':
      if (imgPaste.Enabled) Bearbeiten(&frmWaveEditor::imgPaste_MouseUp);
      return;
    case 'Z':
      return imgSteuerung_MouseUp(kUndo);
    default:
      return;
  }
}

void frmWaveEditor::ZugBis(int x) {
  const int stelle = std::clamp(x, 0, picWaveBack.Width());
  if (picWaveBack.ShiftHeld) {
    shpMarker.Visible = true;
    picWave_MouseMove(kLeftButton, stelle);
  } else {
    picWave_MouseDown(stelle);
  }
  picWave_MouseUp();
  const int breite = picWave.Width;
  if (ZoomFaktor <= 1 || (stelle >= sliderWave.Value && stelle <= sliderWave.Value + breite))
    return;
  sliderWave.Value = std::clamp(stelle - breite / 2, sliderWave.Min(), sliderWave.Max());
  sliderWave_OnChange();
}

}  // namespace vantora
