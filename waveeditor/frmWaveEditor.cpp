// Making, opening, captioning and leaving the wave editor.

#include "waveeditor/frmWaveEditor.h"

#include "app/katalog_dienst.h"
#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"

#include "platform/twips.h"

#include <algorithm>
#include <utility>

namespace vantora {

namespace {

constexpr const wchar_t* kGrossesLayout = L"frmWaveEditor_1000";
constexpr int kGrosserSchirm = 1024;  // pixels; from this width on the larger layout fits
constexpr int kAnzeigeMs = 100;
constexpr int kSpektrumMs = 2000;
constexpr int kLastMs = 500;
constexpr int kNormalizeMs = 10;
constexpr double kGrosseSchrift = 1.25;
constexpr int kMarkerDeckung = 35;  // percent

}  // namespace

// ---- making ----

frmWaveEditor::frmWaveEditor(Programm& programm)
    : VtrFenster(programm, L"frmWaveEditor"),
      WellenTafel(static_cast<Form&>(*this)),
      EffektTafeln(static_cast<Form&>(*this)),
      kette_(programm.plattform.mmtools, programm.plattform.audiolib),
      marker_(shpMarker, linPosition, picWaveBack, programm.plattform.bildschirm),
      bild_(programm.plattform.bildschirm),
      last_(programm.plattform.perfData),
      transport_(programm, {kette_, auswahl_, marker_, last_, *this, tmrAnzeigeTimer}, *this),
      einrechnung_(programm, kette_, imgSteuerung(kEinrechnen), *this),
      bearbeitung_(programm, auswahl_, kette_.SourceFile(), *this),
      presets_(programm.plattform),
      raeume_(programm) {
  kette_.OnPuffer = [this](MMData& data) { DSP_OnBufferFilled(data); };
  kette_.OnPegel = [this](int links, int rechts) {
    Level1.Zeigen(links, 0);
    Level2.Zeigen(0, rechts);
  };
  kette_.Tor().OnZustand = [this](bool offen) {
    LEDGaterAn.Visible = offen;
    LEDGaterAus.Visible = !offen;
  };
  BildEinrichten();
  TransportEinrichten();
  UhrenEinrichten();
  EffekteEinrichten();
  PresetsEinrichten();
}

void frmWaveEditor::BildEinrichten() {
  const auto maus = [this](auto handler) {
    return [this, handler](int taste) { handler(taste, picWaveBack.MouseX); };
  };
  picWaveBack.MouseDown = maus([this](int, int x) { picWave_MouseDown(x); });
  picWaveBack.MouseMove = maus([this](int taste, int x) { picWave_MouseMove(taste, x); });
  picWaveBack.MouseUp = maus([this](int, int) { picWave_MouseUp(); });
  picWaveBack.DblClick = [this] { picWave_DblClick(); };
  picWaveBack.KeyDown = [this](int taste) { picWave_KeyDown(taste); };
  sliderWave.Change = [this] { sliderWave_OnChange(); };
  for (int i = 0; i < imgZoom.Count(); ++i) Knopf(imgZoom(i), [this, i] { imgZoom_MouseUp(i); });
  Knopf(cmdAllesAuswaehlen, [this] { cmdAllesAuswaehlen_Click(); });
  Knopf(cmdAuswahlAufheben, [this] { cmdAuswahlAufheben_Click(); });
  pic3D.DblClick = [this] { pic3D_DblClick(); };
  pic3D.KeyDown = [this](int taste) {
    if (taste == kKeyReturn || taste == kKeySpace) pic3D_DblClick();
  };
}

void frmWaveEditor::TransportEinrichten() {
  for (PictureButton* schalter : {&imgSteuerung(kWiedergabe), &imgSteuerung(kPause), &imgLoop}) {
    schalter->State = Lamp::Off;
  }
  for (int i = 0; i < imgSteuerung.Count(); ++i) {
    imgSteuerung(i).MouseDown = [this, i](int taste) {
      if (taste == kLeftButton) imgSteuerung_MouseDown(i);
    };
    Knopf(imgSteuerung(i), [this, i] { imgSteuerung_MouseUp(i); });
    imgSteuerung(i).DblClick = [this, i] { imgSteuerung_DblClick(i); };
  }
  Knopf(imgLoop, [this] { imgLoop_MouseUp(); });
  const auto bearbeitet = [this](PictureButton& knopf, Handler handler) {
    Knopf(knopf, [this, handler] { Bearbeiten(handler); });
  };
  bearbeitet(imgCopy, &frmWaveEditor::imgCopy_MouseUp);
  bearbeitet(imgCut, &frmWaveEditor::imgCut_MouseUp);
  bearbeitet(imgPaste, &frmWaveEditor::imgPaste_MouseUp);
  bearbeitet(imgMute, &frmWaveEditor::imgMute_MouseUp);
  bearbeitet(imgFadeIn, &frmWaveEditor::imgFadeIn_MouseUp);
  bearbeitet(imgFadeOut, &frmWaveEditor::imgFadeOut_MouseUp);
  bearbeitet(imgNormalize, &frmWaveEditor::imgNormalize_MouseUp);
  Knopf(imgZurück, [this] { imgZurück_MouseUp(); });
  Knopf(imgHelp, [this] { prog.Hilfe(Name); });
}

void frmWaveEditor::UhrenEinrichten() {
  const auto uhr = [](Timer& timer, int ms, std::function<void()> handler) {
    timer.Enabled = false;
    timer.Interval = ms;
    timer.OnTimer = std::move(handler);
  };
  uhr(tmrAnzeigeTimer, kAnzeigeMs, [this] { tmrAnzeigeTimer_Timer(); });
  uhr(tmr3D, kSpektrumMs, [this] { tmr3D_Timer(); });
  uhr(tmrCPU, kLastMs, [this] { tmrCPU_Timer(); });
  uhr(tmrNormalize, kNormalizeMs, [this] { tmrNormalize_Timer(); });
}

// ---- opening ----

void frmWaveEditor::Form_Load() {
  if (prog.EditorBatch) einrechnung_.StapelBeginnen();
  LayoutAnwenden(prog.BildschirmBreite >= kGrosserSchirm ? kGrossesLayout : Name);
  ToolTipsSetzen(*this);
  SkaliereForm(prog, *this);
  MitteSetzen(prog, *this);
  BilderBereiten();
  SetTexte();
  prog.AppLog(L"frmWaveEditor.Form_Load", L"WaveEditor entered");
  Beschaeftigt = true;
  kette_.Starten();
  ReverbPresetsLaden();
  Window.Enabled = false;
  prog.plattform.schleife.MousePointer(Pointer::Hourglass);
  Init_Waveeditor();
  lblDatei.Caption = prog.WaveEditorDatei;
  SetEqualizer();
  SetLoudness();
  regler_.AlleAnwenden();
  if (BatchLaeuft()) EffektWerteLaden();
  bearbeitung_.Beginnen();
  imgPaste.Enabled = false;
  lblPasteDisabled.Visible = true;
  if (prog.plattform.bildschirm.TwipsPerPixelX() == kLargeFontTwipsPerPixel) {
    picPresets.Left = Ganz32(picPresets.Left / kGrosseSchrift);
    picPresets.Top = Ganz32(picPresets.Top / kGrosseSchrift);
  }
  if (BatchLaeuft()) DateiOeffnen();
}

void frmWaveEditor::BilderBereiten() {
  // Buttons that show a state keep their picture when they are let go.
  for (const Schalter& schalter : AlleSchalter()) schalter.Knopf.PictureReleased.clear();
  shpMarker.Opacity = kMarkerDeckung;
  shpMarker.Visible = false;
  sliderWave.Visible = false;
  picPresets.Visible = false;
  CPUBack.Visible = false;
  imgZurück.Enabled = false;
  EscapeWhileDisabled = true;  // Escape can stop a scan
}

// Reading a long file takes a moment, so the window is shown first.
void frmWaveEditor::Form_Activate() {
  if (WorkDatei_.empty()) DateiOeffnen();
}

void frmWaveEditor::Init_Waveeditor() {
  if (comboPreset.ListCount() > 0) {
    comboPreset.ListIndex = std::min(1, comboPreset.ListCount() - 1);
    comboPreset_Click();
  }
  presets_.Vorbelegen([this](int nummer) { return LoadResString(nummer); });
  LastMessungBeginnen();
}

void frmWaveEditor::DateiOeffnen() {
  WorkDatei_ = prog.WaveEditorDatei;
  // A file that cannot be opened counts as a file without sound: nothing is drawn, and nothing can
  // be done.
  Weiter([&] { prog.plattform.dateien.SetAttrNormal(WorkDatei_); });
  MMWaveObject& quelle = kette_.SourceFile().Wave;
  quelle.SetFileName(WorkDatei_);
  Weiter([&] { quelle.Open(); });
  Waehlen({.NurCursor = true});
  marker_update();
  Beschaeftigt = false;
  ScanWave(picWave);
  if (!bild_.ScanAbbruch()) {
    DrawWave(picWave, picWaveBack);
    SpektrumNeuStarten();
  }
  Window.Enabled = true;
  imgZurück.Enabled = true;
  if (!BatchLaeuft()) prog.plattform.schleife.MousePointer(Pointer::Normal);
}

void frmWaveEditor::QuelleNeuOeffnen() {
  MMWaveObject& quelle = kette_.SourceFile().Wave;
  quelle.SetFileName(WorkDatei_);
  Weiter([&] {
    quelle.Open();
    quelle.SetPosition(auswahl_.Stelle());
  });
}

bool frmWaveEditor::Form_KeyDown(int taste, bool strg) {
  if (taste != kKeyEscape) return VtrFenster::Form_KeyDown(taste, strg);
  if (!ScanLaeuft()) return false;
  bild_.Abbrechen();
  return true;
}

// ---- effects into the file ----

void frmWaveEditor::Sperren(bool gesperrt) {
  Window.Enabled = !gesperrt;
  CloseWhileDisabled = gesperrt;
  prog.plattform.schleife.MousePointer(gesperrt ? Pointer::Hourglass : Pointer::Normal);
}

void frmWaveEditor::StapelFertig() {
  bild_.Abbrechen();
  Beschaeftigt = true;
}

void frmWaveEditor::Einrechnen2(const Text& datei) {
  Window.Enabled = false;
  prog.plattform.schleife.MousePointer(Pointer::Hourglass);
  prog.AppLog(L"frmWaveEditor.Einrechnen2(" + datei + L")", L"starting up");
  einrechnung_.StapelBeginnen();
  EffektWerteLaden();
  RuntimeConnections();
  EffektWerteLaden();
  WorkDatei_ = prog.WaveEditorDatei = datei;
  einrechnung_.StapelDatei();
  prog.plattform.schleife.MousePointer(Pointer::Normal);
  Window.Enabled = true;
  prog.AppLog(L"frmWaveEditor.Einrechen2", L"finished");
  CloseMe();
}

// ---- leaving ----

void frmWaveEditor::Form_Close() {
  if (Window.Enabled) return imgZurück_MouseUp();
  prog.Katalogfenster().Beenden();
}

void frmWaveEditor::CloseMe() {
  Beschaeftigt = true;
  transport_.SpulenAbbrechen();  // no release of the button reaches a window that is closed
  prog.plattform.schleife.MousePointer(Pointer::Hourglass);
  tmrCPU.Enabled = false;
  last_.Beenden();
  kette_.Beenden();
  prog.plattform.audiolib.func_16();
  bild_.Vergessen();
  // A file that is gone, or a disk that is full, must not keep the user in the editor.
  MMWaveObject &quelle = kette_.SourceFile().Wave, &ziel = kette_.DestFile().Wave;
  kette_.Out().Stop();
  kette_.Out().Close();
  Weiter([&] { quelle.Close(); });
  Weiter([&] { ziel.Close(); });
  kette_.Trigger().Stop();
  kette_.Beenden();
  Weiter([&] { quelle.Close(); });
  if (WorkDatei_ != prog.WaveEditorDatei && prog.DateiExistiert(WorkDatei_)) {
    Weiter([&] { prog.plattform.dateien.Kill(WorkDatei_); });
  }
  KatalogDienst& haupt = prog.Katalogfenster();
  haupt.FreiSetzen(!prog.EditorBatch);  // between two files of a batch the user must not act
  EffektWerteMerken();
  bearbeitung_.Beenden();
  einrechnung_.Aufraeumen();
  prog.AppLog(L"frmWaveEditor.CloseMe()", L"wave editor session closed");
  haupt.KatalogShow();
  prog.frmWaveEditor.Entladen();
  prog.plattform.schleife.MousePointer(Pointer::Normal);
}

void frmWaveEditor::Form_Unload() {
  for (Timer* timer : {&tmrAnzeigeTimer, &tmr3D, &tmrCPU, &tmrNormalize}) timer->Enabled = false;
}

// ---- texts ----

void frmWaveEditor::SetTexte() {
  Caption = LoadResString(21227);
  lblTitel.Caption = LoadResString(21227);
  lblDatei.Caption = L"";
  lblStatus.Caption = L"";
  lblFeld(3).Caption = LoadResString(21240);
  lblZoomFaktor.Caption = LoadResString(21241);
  lblPasteDisabled.Caption = L"";
  Beschriften(lblEinrechnen, imgSteuerung(kEinrechnen), LoadResString(21201));
  Beschriften(lblZurück, imgZurück, LoadResString(21202));
  Hinweis(imgHelp, 21424);
  Hinweis(imgCopy, 21404);
  Hinweis(imgCut, 21405);
  Hinweis(imgPaste, 21430);
  Hinweis(imgMute, 21427);
  Hinweis(imgFadeIn, 21418);
  Hinweis(imgFadeOut, 21419);
  Hinweis(imgNormalize, 21428);
  Hinweis(imgLoop, 21425);
  constexpr int kSteuerung[] = {21432, 21433, 21434, 21435, 21436, 21445, 21438};
  for (int i = 0; i < imgSteuerung.Count(); ++i) Hinweis(imgSteuerung(i), kSteuerung[i]);
  for (int i = 0; i < imgZoom.Count(); ++i) Hinweis(imgZoom(i), 21441 + i);
  Hinweis(imgZurück, 21444);
  Hinweis(cmdAllesAuswaehlen, 5215);
  Hinweis(cmdAuswahlAufheben, 30174);
  Hinweis(lblMarkerAnfang, 21451);
  Hinweis(lblMarkerDelta, 21452);
  Hinweis(lblMarkerEnde, 21453);
  for (int i = 0; i < 3; ++i) {
    Hinweis(lblFeld(i), 21451 + i);
    const Text worte = LoadResString(21451 + i);
    lblFeld(i).Caption = worte.substr(0, worte.find(L' '));  // "Inicio", "Duración", "Fin"
  }
  Hinweis(lblStatus, 21454);
  Hinweis(lblZoomFaktor, 21455);
  Hinweis(Level1, 21457);
  Hinweis(Level2, 21458);
  Hinweis(picWaveBack, 21461);
  Hinweis(picZeitFront, 21462);
  Hinweis(sliderWave, 21472);
  Hinweis(pic3D, 21460);
  lblSpektrumAus.Caption = LoadResString(30083);
  lblSpektrumAus.Visible = !prog.Show3DAnalysis;
  TexteEffekte();
  HinweiseEffekte();
  TextePresets();
}

void frmWaveEditor::Hinweis(Control& control, int nummer) {
  control.ToolTipText = LoadResString(nummer);
  const bool benannt = control.Kind() == ControlKind::Label || !control.AccessibleName().empty();
  if (!benannt) control.AccessibleName = LoadResString(nummer);
}

}  // namespace vantora
