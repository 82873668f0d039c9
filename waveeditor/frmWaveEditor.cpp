// How the wave editor is made, opened and captioned.

#include "waveeditor/frmWaveEditor.h"

#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"

#include "platform/twips.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr const wchar_t* kGrossesLayout = L"frmWaveEditor_1000";
constexpr int kGrosserSchirm = 1024;  // pixels; from this width on the larger layout fits
constexpr int kAnzeigeMs = 100;
constexpr int kSpektrumMs = 2000;
constexpr int kLastMs = 500;
constexpr int kNormalizeMs = 10;
constexpr int kBibliothekBytes = 8192;
constexpr double kGrosseSchrift = 1.25;
constexpr int kMarkerDeckung = 35;  // percent

}  // namespace

frmWaveEditor::frmWaveEditor(Programm& programm)
    : VtrFenster(programm, L"frmWaveEditor"),
      SourceFile(programm.plattform.mmtools.NewWaveFileX()) {
  KomponentenErzeugen();
  for (CheckBox* kasten :
       {&chkEQBypass, &chkLoudness, &chkReverbbypass, &chkFlangerAktiv, &chkVolume, &chkGateraktiv,
        &chkDeclickAktiv, &chkDenoiserAktiv, &chkDecrackleAktiv}) {
    kasten->Visible = false;  // they hold a state that the buttons show
  }
  TransportEinrichten();
  EffekteEinrichten();
  PresetsEinrichten();
}

void frmWaveEditor::KomponentenErzeugen() {
  MMTools& werkzeug = prog.plattform.mmtools;
  DestFile = werkzeug.NewWaveFileX();
  DestFile->Wave.FileMustExist = false;
  MMPCMConverterX1 = werkzeug.NewPCMConverter();
  Peak = werkzeug.NewPeakDetect();
  DSP = werkzeug.NewDSPInterface();
  Eq = werkzeug.NewEqualizer();
  Loudness = werkzeug.NewEqualizer();
  Reverb = werkzeug.NewReverb();
  Flanger = werkzeug.NewFlanger();
  mmVolume = werkzeug.NewVolume();
  Out = werkzeug.NewWaveOut();
  MMConnectorX1 = werkzeug.NewConnector();
  Trigger = werkzeug.NewTrigger();
  KetteVerbinden();
}

void frmWaveEditor::KetteVerbinden() {
  MMPCMConverterX1->SetInput(SourceFile.get());
  Peak->SetInput(MMPCMConverterX1.get());
  DSP->SetInput(Peak.get());
  Eq->SetInput(DSP.get());
  Loudness->SetInput(DSP.get());
  Reverb->SetInput(DSP.get());
  Flanger->SetInput(DSP.get());
  mmVolume->SetInput(DSP.get());
  Out->SetInput(DSP.get());
  MMConnectorX1->SetInput(Out.get());
  DestFile->SetInput(Trigger.get());
  DSP->OnBufferFilled = [this](MMData& data) { DSP_OnBufferFilled(data); };
  MMConnectorX1->OnLevel = [this](int links, int rechts) {
    Level1.Zeigen(links, 0);
    Level2.Zeigen(0, rechts);
  };
  Trigger->OnStop = [this] { Trigger_OnStop(); };
  Trigger->OnError = [this] { Trigger_OnError(); };
}

void frmWaveEditor::TransportEinrichten() {
  const auto maus = [this](auto handler) {
    return [this, handler](int taste) { handler(taste, picWaveBack.MouseX); };
  };
  picWaveBack.MouseDown = maus([this](int, int x) { picWave_MouseDown(x); });
  picWaveBack.MouseMove = maus([this](int taste, int x) { picWave_MouseMove(taste, x); });
  picWaveBack.MouseUp = maus([this](int, int) { picWave_MouseUp(); });
  picWaveBack.DblClick = [this] { picWave_DblClick(); };
  picWaveBack.KeyDown = [this](int taste) { picWave_KeyDown(taste); };
  sliderWave.Change = [this] { sliderWave_OnChange(); };
  for (int i = 0; i < imgSteuerung.Count(); ++i) {
    imgSteuerung(i).MouseDown = [this, i](int taste) {
      if (taste == kLeftButton) imgSteuerung_MouseDown(i);
    };
    Knopf(imgSteuerung(i), [this, i] { imgSteuerung_MouseUp(i); });
    imgSteuerung(i).DblClick = [this, i] { imgSteuerung_DblClick(i); };
  }
  for (int i = 0; i < imgZoom.Count(); ++i) Knopf(imgZoom(i), [this, i] { imgZoom_MouseUp(i); });
  Knopf(imgLoop, [this] { imgLoop_MouseUp(); });
  Knopf(cmdAllesAuswaehlen, [this] { cmdAllesAuswaehlen_Click(); });
  Knopf(cmdAuswahlAufheben, [this] { cmdAuswahlAufheben_Click(); });
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
  pic3D.DblClick = [this] { pic3D_DblClick(); };
  pic3D.KeyDown = [this](int taste) {
    if (taste == kKeyReturn || taste == kKeySpace) pic3D_DblClick();
  };
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

// Buttons that show a state keep their picture when they are let go.
void frmWaveEditor::BilderBereiten() {
  for (PictureButton* knopf :
       {&imgByPass, &imgLoudness, &imgHallByPass, &imgFlangerBypass, &imgVolumeByPass,
        &imgGaterBypass, &imgDeclickByPass, &imgDenoiserByPass, &imgDecrackleByPass}) {
    knopf->PictureReleased.clear();
  }
  shpMarker.Opacity = kMarkerDeckung;
  shpMarker.Visible = false;
  sliderWave.Visible = false;
  picPresets.Visible = false;
  CPUBack.Visible = false;
  imgZurück.Enabled = false;
  EscapeWhileDisabled = true;  // a scan can be left
}

// ---- opening ----

void frmWaveEditor::Form_Load() {
  BatchLaeuft = prog.EditorBatch;
  LayoutAnwenden(prog.BildschirmBreite >= kGrosserSchirm ? kGrossesLayout : Name);
  ToolTipsSetzen(*this);
  SkaliereForm(prog, *this);
  MitteSetzen(prog, *this);
  BilderBereiten();
  SetTexte();
  prog.AppLog(L"frmWaveEditor.Form_Load", L"WaveEditor entered");
  Beschaeftigt = true;
  prog.plattform.audiolib.func_01(kBibliothekBytes);
  for (MMEffectX* effekt :
       {static_cast<MMEffectX*>(Eq.get()), static_cast<MMEffectX*>(Loudness.get()),
        static_cast<MMEffectX*>(Reverb.get()), static_cast<MMEffectX*>(Flanger.get()),
        static_cast<MMEffectX*>(mmVolume.get())}) {
    effekt->Enable();
    effekt->Disable();
  }
  ReverbPresetsLaden();
  Window.Enabled = false;
  prog.plattform.schleife.MousePointer(Pointer::Hourglass);
  Init_Waveeditor();
  lblDatei.Caption = prog.WaveEditorDatei;
  SetEqualizer();
  SetLoudness();
  for (Regler& regler : Regler_) ReglerGeaendert(regler);
  if (BatchLaeuft) EffektWerteLaden();
  bearbeitung_.Beginnen();
  imgPaste.Enabled = false;
  lblPasteDisabled.Visible = true;
  if (prog.plattform.bildschirm.TwipsPerPixelX() == kLargeFontTwipsPerPixel) {
    picPresets.Left = Ganz32(picPresets.Left / kGrosseSchrift);
    picPresets.Top = Ganz32(picPresets.Top / kGrosseSchrift);
  }
  if (BatchLaeuft) DateiOeffnen();
}

// A long file takes a moment to be read; the window is seen meanwhile.
void frmWaveEditor::Form_Activate() {
  if (!WorkDatei.empty()) return;
  DateiOeffnen();
}

void frmWaveEditor::Init_Waveeditor() {
  if (comboPreset.ListCount() > 0) {
    comboPreset.ListIndex = std::min(1, comboPreset.ListCount() - 1);
    comboPreset_Click();
  }
  PresetsVorbelegen();
  LastMessungBeginnen();
}

void frmWaveEditor::DateiOeffnen() {
  WorkDatei = prog.WaveEditorDatei;
  bearbeitung_.DateiWaehlen(WorkDatei);
  // A file that cannot be opened is one without sound: nothing is drawn, and nothing can be done.
  Weiter([&] { prog.plattform.dateien.SetAttrNormal(WorkDatei); });
  SourceFile->Wave.SetFileName(WorkDatei);
  Weiter([&] { SourceFile->Wave.Open(); });
  NurCursor = true;
  CursorPos = 0;
  marker_update();
  ScanAbbruch = false;
  Beschaeftigt = false;
  ScanWave(picWave);
  if (!ScanAbbruch) {
    DrawWave(picWave, picWaveBack);
    SpektrumNeuStarten();
  }
  Window.Enabled = true;
  imgZurück.Enabled = true;
  if (!BatchLaeuft) prog.plattform.schleife.MousePointer(Pointer::Normal);
}

// Escape while the file is being opened leaves it closed. An edit needs it open: its undo saves
// from it, and what is selected on the picture counts in its frames.
void frmWaveEditor::Bearbeiten(Handler handler) {
  if (!SourceFile->Wave.IsOpen()) {
    QuelleNeuOeffnen();
    marker_update();
  }
  (this->*handler)();
}

void frmWaveEditor::Form_Unload() {
  for (Timer* timer : {&tmrAnzeigeTimer, &tmr3D, &tmrCPU, &tmrNormalize}) timer->Enabled = false;
}

void frmWaveEditor::Form_Paint() {
  pic3D_Paint();
}

bool frmWaveEditor::Form_KeyDown(int taste, bool strg) {
  if (taste != kKeyEscape) return VtrFenster::Form_KeyDown(taste, strg);
  if (!ScanLaeuft) return false;
  ScanAbbruch = true;
  return true;
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
  Beschriften(lblEinrechnen, imgSteuerung(5), LoadResString(21201));
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
  TexteEffekte();
  TextePresets();
}

void frmWaveEditor::Hinweis(Control& control, int nummer) {
  control.ToolTipText = LoadResString(nummer);
  if (control.AccessibleName().empty()) control.AccessibleName = LoadResString(nummer);
}

}  // namespace vantora
