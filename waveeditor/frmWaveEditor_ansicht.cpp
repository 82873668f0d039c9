// The upper part of the window: the picture of the sound and the selection on it, the transport,
// the edits and the small picture of the spectrum.

#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "waveeditor/frmSpektrum.h"
#include "waveeditor/frmWaveEditor.h"
#include "waveeditor/spektrum_bild.h"

#include <algorithm>
#include <optional>

namespace vantora {

namespace {

constexpr int kSeiten = 10;  // page keys move by a tenth of the window's width
constexpr std::int32_t kMindestFrames = 0x1000, kHoechstFrames = 0x11800;  // range of the spectrum

}  // namespace

// ---- picture ----

void frmWaveEditor::ScanWave(const PictureBox& bild) {
  if (BatchLaeuft()) return;
  EventLoop& schleife = prog.plattform.schleife;
  Gelesen_ = DateiStand{};
  Weiter([&] { Gelesen_ = prog.plattform.dateien.Stand(WorkDatei_); });
  bild_.ScanBeginnen();
  picWaveBack.Cls();
  marker_.Aufheben();
  marker_update();
  schleife.DoEvents();
  prog.AppLog(L"ScanWave", L"scanning wave");
  MMWaveObject& quelle = kette_.SourceFile().Wave;
  const bool ganz = bild_.Lesen(quelle, bild.Width, bild.Height, [&](double prozent) {
    Status(LoadResString(21607) + Format(prozent, L"#,##00") + L"%");
    schleife.DoEvents();
  });
  if (!ganz) {
    quelle.Close();
    kette_.Out().Stop();
  }
  bild_.ScanBeenden();
  Status(L"");
}

void frmWaveEditor::DrawWave(const PictureBox& fenster, PictureBox& flaeche) {
  if (BatchLaeuft()) return;
  prog.AppLog(L"DrawWave", L"drawing wave");
  const int breite = ansicht_.Breite(fenster.Width);
  flaeche.Width = breite;
  picZeitFront.Width = breite;
  QuelleNeuOeffnen();
  const std::int32_t laenge = kette_.Laenge();
  WellenBild::LinealZeichnen(picZeitFront, ZoomFaktor(), laenge);
  bild_.Zeichnen(flaeche, ZoomFaktor());
  if (ansicht_.Ganz()) return;
  const std::int32_t stelle = kette_.SourceFile().Wave.Position();
  const double platz = laenge == 0 ? 0 : Runden(1.0 * stelle / laenge * breite);
  sliderWave.Value = std::min(Ganz32(platz), sliderWave.Max());
  sliderWave_OnChange();
}

void frmWaveEditor::KlangZeigen() {
  ScanWave(picWave);
  DrawWave(picWave, picWaveBack);
}

void frmWaveEditor::NeuZeigen() {
  MMWaveObject& quelle = kette_.SourceFile().Wave;
  quelle.SetFileName(WorkDatei_);
  quelle.Open();
  KlangZeigen();
}

// The selection counts in frames of the file as it was read. In another file it would mean other
// sound, or none at all, and an undo would write the old sound into it.
bool frmWaveEditor::Veraendert() {
  if (Gelesen_ == DateiStand{} || prog.plattform.dateien.Stand(WorkDatei_) == Gelesen_) {
    return false;
  }
  bearbeitung_.UndoVerwerfen();
  Waehlen({.NurCursor = true});
  NeuZeigen();
  prog.MsgBoxen(LoadResString(30138), kHinweis);
  return true;
}

void frmWaveEditor::imgZoom_MouseUp(int index) {
  if (Spielt() || !ansicht_.Zoomen(index)) return;
  EventLoop& schleife = prog.plattform.schleife;
  schleife.MousePointer(Pointer::Hourglass);
  Window.Enabled = false;
  sliderWave.Min = 0;
  lblZoomFaktor.Caption = ZahlText(static_cast<double>(ZoomFaktor())) + LoadResString(21611);
  if (ansicht_.Ganz()) {
    sliderWave.Visible = false;
    sliderWave.Value = 0;
    sliderWave_OnChange();
  } else {
    sliderWave.Max = ansicht_.RollWeg(picWave.Width);
    sliderWave.Visible = true;
  }
  DrawWave(picWave, picWaveBack);
  marker_.Zeigen(auswahl_, kette_.Laenge());
  Window.Enabled = true;
  schleife.MousePointer(Pointer::Normal);
}

void frmWaveEditor::sliderWave_OnChange() {
  picWaveBack.Left = -sliderWave.Value();
  picZeitFront.Left = -sliderWave.Value();
}

void frmWaveEditor::StelleZeigen(std::int64_t frame) {
  const std::int32_t laenge = kette_.Laenge();
  const auto stelle = static_cast<double>(frame);
  if (frame <= laenge) marker_.PositionSetzen(1.0 * picWaveBack.Width / laenge * stelle);
  Status(SmpToTime(stelle));
  WelleAnsagen(stelle);
  if (ansicht_.Ganz()) return;
  sliderWave.Value = Ansicht::Seite(marker_.Position(), picWave.Width, sliderWave.Max);
  sliderWave_OnChange();
}

// ---- selection ----

void frmWaveEditor::picWave_MouseDown(int x) {
  marker_.Druecken(x);
  marker_update();
}

void frmWaveEditor::picWave_MouseMove(int taste, int x) {
  if (taste != kLeftButton) return;
  marker_.Ziehen(x);
  marker_update();
}

void frmWaveEditor::picWave_MouseUp() {
  SpektrumNeuStarten();
}

void frmWaveEditor::cmdAllesAuswaehlen_Click() {
  if (Spielt() || !ansicht_.Ganz()) return;
  marker_.Alles();
  marker_update();
  picWave_MouseUp();
}

void frmWaveEditor::cmdAuswahlAufheben_Click() {
  marker_.Aufheben();
  marker_update();
}

void frmWaveEditor::marker_reset() {
  marker_.Zuruecksetzen();
  marker_update();
}

void frmWaveEditor::marker_update() {
  marker_.InFrames(kette_.Laenge(), auswahl_);
  const Auswahl& a = auswahl_;
  if (a.NurCursor) marker_.PositionZumMarker();
  lblMarkerAnfang.Caption = SmpToTime(a.Stelle());
  lblMarkerEnde.Caption = SmpToTime(a.NurCursor ? a.CursorPos : a.MarkerEnde);
  lblMarkerDelta.Caption = SmpToTime(a.NurCursor ? 0 : a.MarkerEnde - a.MarkerAnfang);
  WelleAnsagen(a.Stelle());
}

// For screen readers: the position and the selection, which others see in the picture.
void frmWaveEditor::WelleAnsagen(double stelle) {
  const Auswahl& a = auswahl_;
  const Text auswahl = a.NurCursor ? LoadResString(30177)
                                   : LoadResString(30176) + SmpToTime(a.MarkerAnfang) + L" - " +
                                         SmpToTime(a.MarkerEnde);
  picWaveBack.AccessibleValue = LoadResString(30175) + SmpToTime(stelle) + L". " + auswahl;
}

// ---- the marker by the keyboard ----

// Arrow keys move the cursor by a pixel, so their steps are finer in a closer view. With Shift,
// arrow keys drag the marker. Each key does the same as the mouse at that place.
void frmWaveEditor::picWave_KeyDown(int taste) {
  if (picWaveBack.ControlHeld) return BefehlsTaste(taste);
  const int pixel = Ganz32(prog.plattform.bildschirm.TwipsPerPixelX());
  const int seite = picWave.Width / kSeiten, zug = marker_.ZugX();
  switch (taste) {
    case kKeyLeft:
      return ZugBis(zug - pixel);
    case kKeyRight:
      return ZugBis(zug + pixel);
    case kKeyPageUp:
      return ZugBis(zug - seite);
    case kKeyPageDown:
      return ZugBis(zug + seite);
    case kKeyHome:
      return ZugBis(0);
    case kKeyEnd:
      return ZugBis(picWaveBack.Width);
    case kKeySpace:
      return imgSteuerung_MouseUp(Spielt() ? kStop : kWiedergabe);
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
    marker_.Einblenden();
    picWave_MouseMove(kLeftButton, stelle);
  } else {
    picWave_MouseDown(stelle);
  }
  picWave_MouseUp();
  if (ansicht_.Ganz()) return;
  const std::optional<int> gerollt =
      Ansicht::Zeigen(stelle, sliderWave.Value, picWave.Width, sliderWave.Max);
  if (!gerollt) return;
  sliderWave.Value = *gerollt;
  sliderWave_OnChange();
}

// ---- transport ----

void frmWaveEditor::imgSteuerung_MouseDown(int index) {
  if (index == kEinrechnen && EffekteAktiv()) {
    imgSteuerung(kEinrechnen).Picture = L"WAVE_EINRECHNEN_PRESSED";
  }
  if (index == kVor || index == kZurueck) transport_.Spulen(index == kVor);
}

void frmWaveEditor::imgSteuerung_MouseUp(int index) {
  transport_.SchleifeAus();
  if (index != kEinrechnen) KnopfBild(imgSteuerung(index));
  switch (index) {
    case kWiedergabe:
      return transport_.Wiedergabe();
    case kStop:
      return transport_.Stop();
    case kPause:
      return transport_.PauseUmschalten();
    case kVor:
    case kZurueck:
      return transport_.SpulenBeenden();
    case kEinrechnen:
      if (EffekteAktiv() && !Spielt()) einrechnung_.Einrechnen();
      return;
    default:
      return UndoWave();
  }
}

void frmWaveEditor::imgSteuerung_DblClick(int index) {
  if (index == kVor || index == kZurueck) transport_.AnsEnde(index == kVor);
}

void frmWaveEditor::Form_GotFocus() {
  if (!transport_.SpulAktiv()) return;
  for (const int index : {kVor, kZurueck}) KnopfBild(imgSteuerung(index));
  transport_.SpulenBeenden();
}

// ---- edits ----

// When Escape has stopped the scan at the opening, the file is closed. An edit needs it open: the
// undo store is saved from it, and the selection on the picture counts in its frames.
void frmWaveEditor::Bearbeiten(Handler handler) {
  if (!kette_.SourceFile().Wave.IsOpen()) {
    QuelleNeuOeffnen();
    marker_update();
  }
  (this->*handler)();
}

void frmWaveEditor::Ausfuehren(const std::function<void()>& arbeit) {
  EventLoop& schleife = prog.plattform.schleife;
  const auto frei = [this, &schleife] {
    Window.Enabled = true;
    schleife.MousePointer(Pointer::Normal);
  };
  schleife.MousePointer(Pointer::Hourglass);
  Window.Enabled = false;
  try {
    if (Veraendert()) return frei();
    if (bearbeitung_.Vorbereiten()) QuelleNeuOeffnen();
    arbeit();
  } catch (const Laufzeitfehler&) {
    bearbeitung_.NachFehler();
    Weiter([&] { NeuZeigen(); });
    frei();
    throw;
  }
  // An edit that refuses its work late has closed the file already.
  if (!kette_.SourceFile().Wave.IsOpen()) QuelleNeuOeffnen();
  frei();
}

void frmWaveEditor::NormalizeWave() {
  if (bearbeitung_.PlatzZumNormalisieren()) Ausfuehren([this] { bearbeitung_.NormalizeWave(); });
}

void frmWaveEditor::tmrNormalize_Timer() {
  Status(LoadResString(bearbeitung_.NormalizePhase() == 0 ? 21607 : 21614) +
         ZahlText(bearbeitung_.NormalizeProzent()) + L"%");
}

void frmWaveEditor::UndoWave() {
  if (Spielt() || !bearbeitung_.UndoMoeglich()) return;
  Ausfuehren([this] { bearbeitung_.UndoWave(); });
}

void frmWaveEditor::imgCopy_MouseUp() {
  if (Spielt()) return;
  KnopfBild(imgCopy);
  InAblage([this] { CopyWave(); });
}

void frmWaveEditor::imgCut_MouseUp() {
  if (Spielt()) return;
  KnopfBild(imgCut);
  InAblage([this] { CutWave(); });
}

// Afterwards the clipboard can be pasted, also when the operation has failed.
void frmWaveEditor::InAblage(const std::function<void()>& arbeit) {
  Jedenfalls([&] { Ausfuehren(arbeit); },
             [this] {
               imgPaste.Enabled = true;
               lblPasteDisabled.Visible = false;
             });
}

void frmWaveEditor::imgPaste_MouseUp() {
  if (Spielt()) return;
  KnopfBild(imgPaste);
  Ausfuehren([this] { PasteWave(); });
}

void frmWaveEditor::imgMute_MouseUp() {
  if (Spielt()) return;
  KnopfBild(imgMute);
  Ausfuehren([this] { MuteWave(); });
}

void frmWaveEditor::imgFadeIn_MouseUp() {
  if (Spielt()) return;
  KnopfBild(imgFadeIn);
  Ausfuehren([this] { FadeInWave(); });
}

void frmWaveEditor::imgFadeOut_MouseUp() {
  if (Spielt()) return;
  KnopfBild(imgFadeOut);
  Ausfuehren([this] { FadeOutWave(); });
}

void frmWaveEditor::imgNormalize_MouseUp() {
  if (Spielt()) {
    PlayWave(false);
    prog.MsgBoxen(LoadResString(21008), kHinweis);
    return;
  }
  KnopfBild(imgNormalize);
  NormalizeWave();
}

// ---- spectrum ----

void frmWaveEditor::Spektrum3D() {
  if (!prog.Show3DAnalysis || ScanLaeuft() || BatchLaeuft() || Spielt() || Beschaeftigt) return;
  // The file is being written, or the library is busy with the large picture.
  if (tmrNormalize.Enabled || prog.frmSpektrum.Geladen()) return SpektrumNeuStarten();
  EventLoop& schleife = prog.plattform.schleife;
  const std::int32_t frames =
      auswahl_.NurCursor
          ? kHoechstFrames
          : std::clamp(auswahl_.MarkerEnde - auswahl_.MarkerAnfang, kMindestFrames, kHoechstFrames);
  SpektrumBild bild(prog);
  if (!bild.Lesen(WorkDatei_, auswahl_.Stelle(), frames)) return;
  pic3D.Cls();
  bild.Umrechnen();
  schleife.DoEvents();
  if (Beschaeftigt) return;  // the window has begun to close meanwhile
  bild.Zeichnen(pic3D);
  schleife.DoEvents();
  prog.SpektrumDatei = WorkDatei_;
  prog.SpektrumStart = bild.Start();
  prog.SpektrumLaenge = frames;
  prog.SpektrumBereit = true;
}

void frmWaveEditor::tmr3D_Timer() {
  tmr3D.Enabled = false;
  Spektrum3D();
}

void frmWaveEditor::pic3D_Paint() {
  if (!bild_.ScanAbbruch()) SpektrumNeuStarten();
}

void frmWaveEditor::pic3D_DblClick() {
  if (!prog.Show3DAnalysis || !prog.SpektrumBereit) return;
  prog.AppLog(L"frmWaveEditor.pic3D_DblClick()", L"showing fullscreen FFT");
  prog.ZeigeModal(prog.frmSpektrum.Laden());
}

}  // namespace vantora
