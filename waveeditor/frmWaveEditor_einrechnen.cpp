// Effects into the file, for the one that is open and for each of a batch; and how the editor is
// left. The sound goes through the chain into a temporary file, and only the whole of that takes
// the source's place.

#include "app/katalog_dienst.h"
#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "waveeditor/frmWaveEditor.h"

#include "platform/cd_sound.h"

namespace vantora {

namespace {

constexpr int kEinrechnen = 5;
constexpr const wchar_t* kApplyDatei = L"temp001.dat";
constexpr const wchar_t* kBatchDatei = L"temp.001";
constexpr const wchar_t* kStatStop = L"PerfStats\\StopStat";
constexpr const wchar_t* kOrtEinrechnen2 = L"frmWaveEditor.Einrechen2";
constexpr int kLoslassenMs = 500;  // until the file that was written can be copied
constexpr int kWartenMs = 50;

Text ImTempOrdner(const Programm& prog, const wchar_t* name) {
  return AddBackslash(prog.Temporary_Directory.Getrimmt()) + name;
}

}  // namespace

// ---- the file that is open ----

void frmWaveEditor::Einrechnen() {
  if (!EffekteAktiv || Spielt || EinrechnenLaeuft) return;
  prog.AppLog(L"Einrechnen", L"starting....");
  lblStatus.Caption = LoadResString(7241);
  MMWaveObject& quelle = SourceFile->Wave;
  quelle.Close();
  quelle.Open();
  quelle.PlayStart = 0;
  quelle.PlayEnd = quelle.DataSize();
  KnopfBild(imgSteuerung(kEinrechnen));
  if (quelle.Empty()) return;
  BatchLaeuft = false;
  EinrechnenLaeuft = true;
  Sperren(true);  // before events run: what plays now, or leaves, would spoil the file
  try {
    RuntimeConnections();
    EffekteFrisch();
    DestFile->Wave.SetFileName(ImTempOrdner(prog, kApplyDatei));
    lblStatus.Caption = LoadResString(7242);
    prog.plattform.schleife.DoEvents();
    Trigger->Start();
  } catch (const Laufzeitfehler&) {
    RenderAbschliessen();
    throw;
  }
}

// While it is locked the program can be ended all the same: a render that has failed never unlocks.
void frmWaveEditor::Sperren(bool gesperrt) {
  Window.Enabled = !gesperrt;
  CloseWhileDisabled = gesperrt;
  prog.plattform.schleife.MousePointer(gesperrt ? Pointer::Hourglass : Pointer::Normal);
}

void frmWaveEditor::Form_Close() {
  if (Window.Enabled) return imgZurück_MouseUp();
  prog.Katalogfenster().Beenden();
}

// What was heard before must not ring on into the beginning of the file.
void frmWaveEditor::EffekteFrisch() {
  for (MMEffectX* effekt :
       {static_cast<MMEffectX*>(Eq.get()), static_cast<MMEffectX*>(Loudness.get()),
        static_cast<MMEffectX*>(Reverb.get()), static_cast<MMEffectX*>(Flanger.get()),
        static_cast<MMEffectX*>(mmVolume.get())}) {
    effekt->Disable();
  }
  chkEQBypass_Click();
  chkLoudness_Click();
  chkReverbbypass_Click();
  chkFlangerAktiv_Click();
  chkVolume_Click();
  GateZaehler = 0;
  Audiolib& lib = prog.plattform.audiolib;
  if (chkDeclickAktiv.Value() == 1) {
    lib.func_11();
    lib.func_05(DeclickLevel);
  }
  if (chkDecrackleAktiv.Value() == 1) {
    lib.func_09();
    lib.func_03(DecrackleLevel);
  }
  if (chkDenoiserAktiv.Value() == 1) {
    lib.func_10();
    lib.func_04(DenoiserLevel);
  }
}

// ---- what the trigger tells ----

void frmWaveEditor::Trigger_OnStop() {
  // After a failure on the source as it was.
  Jedenfalls([this] { ErgebnisUebernehmen(); }, [this] { RenderAbschliessen(); });
}

void frmWaveEditor::ErgebnisUebernehmen() {
  Trigger->Stop();
  const std::int32_t frames = SourceFile->Wave.PlayEnd;
  DestFile->Wave.Close();
  SourceFile->Wave.Close();
  EinrechnenLaeuft = false;  // the chain ends at the loudspeaker again
  RuntimeConnections();
  prog.AppLog(L"Trigger_OnStop()", L"trigger finished");
  prog.plattform.schleife.DoEvents();
  prog.Pausieren(kLoslassenMs);
  const Text ergebnis = DestFile->Wave.FileName();
  // The sound ends early where another program has shortened the file: what is left of it stays.
  if (prog.plattform.dateien.FileLen(ergebnis) < frames * kFrameBytes) {
    throw Laufzeitfehler(kFehlerDateiEnde, L"El archivo ha cambiado");
  }
  prog.plattform.dateien.FileCopy(ergebnis, WorkDatei);
  prog.plattform.dateien.Kill(ergebnis);
}

void frmWaveEditor::RenderAbschliessen() {
  if (BatchLaeuft) {
    BatchLaeuft = false;
    ScanAbbruch = true;
    Beschaeftigt = true;
    return;
  }
  EinrechnenLaeuft = false;
  SourceFile->Wave.SetFileName(WorkDatei);
  Weiter([&] { SourceFile->Wave.Open(); });
  Weiter([&] {
    ScanWave(picWave);
    DrawWave(picWave, picWaveBack);
  });
  Sperren(false);
}

// The window stays locked and a batch waits on: what has failed here would fail again.
void frmWaveEditor::Trigger_OnError() {
  Trigger->Stop();
  TriggerSteht = true;
  prog.AppLog(L"Trigger_OnError", L"Trigger Error aufgetreteten.");
}

// ---- a batch ----

void frmWaveEditor::Einrechnen2(const Text& datei) {
  Window.Enabled = false;
  prog.plattform.schleife.MousePointer(Pointer::Hourglass);
  prog.AppLog(L"frmWaveEditor.Einrechnen2(" + datei + L")", L"starting up");
  BatchLaeuft = true;
  EffektWerteLaden();
  RuntimeConnections();
  EffektWerteLaden();
  WorkDatei = prog.WaveEditorDatei = datei;
  bearbeitung_.DateiWaehlen(datei);
  prog.plattform.dateien.SetAttrNormal(datei);
  MMWaveObject& quelle = SourceFile->Wave;
  quelle.Close();
  quelle.SetFileName(datei);
  quelle.Open();
  quelle.Close();
  quelle.Open();
  quelle.PlayStart = 0;
  quelle.PlayEnd = quelle.DataSize();
  WaveHelper.PcmFormat(WaveHelper.WaveFormatPtr(), kSampleBits, kChannels, kSampleRate);
  DestFile->Wave.SetFileName(ImTempOrdner(prog, kBatchDatei));
  prog.AppLog(kOrtEinrechnen2, L"starting trigger");
  Trigger->Start();
  while (BatchLaeuft) {
    prog.plattform.schleife.DoEvents();
    if (TriggerSteht) prog.plattform.schleife.Sleep(kWartenMs);
  }
  prog.plattform.schleife.MousePointer(Pointer::Normal);
  Window.Enabled = true;
  prog.AppLog(kOrtEinrechnen2, L"finished");
  CloseMe();
}

// ---- leaving ----

void frmWaveEditor::CloseMe() {
  Beschaeftigt = true;
  SpulAktiv = false;  // nobody is left to let the button go
  prog.plattform.schleife.MousePointer(Pointer::Hourglass);
  tmrCPU.Enabled = false;
  if (prog.plattform.perfData.RegOpenKey(kStatStop)) {
    prog.plattform.perfData.RegCloseKey(kStatStop);
  }
  prog.plattform.audiolib.func_02();
  prog.plattform.audiolib.func_16();
  WellenPunkte = std::vector<Punkt>(1);
  LinkePunkte = RechtePunkte = std::vector<Pixel>(1);
  SpektrumDaten = std::vector<std::int16_t>(1);
  // A file that has gone, or a full disk, keeps nobody in the editor.
  Out->Stop();
  Out->Close();
  Weiter([&] { SourceFile->Wave.Close(); });
  Weiter([&] { DestFile->Wave.Close(); });
  Trigger->Stop();
  prog.plattform.audiolib.func_02();
  Weiter([&] { SourceFile->Wave.Close(); });
  const auto entfernen = [this](const Text& datei) {
    if (prog.DateiExistiert(datei)) Weiter([&] { prog.plattform.dateien.Kill(datei); });
  };
  if (WorkDatei != prog.WaveEditorDatei) entfernen(WorkDatei);
  KatalogDienst& haupt = prog.Katalogfenster();
  haupt.FreiSetzen(!prog.EditorBatch);  // between two files of a batch nobody begins a thing
  EffektWerteMerken();
  bearbeitung_.Beenden();
  entfernen(ImTempOrdner(prog, kApplyDatei));
  entfernen(ImTempOrdner(prog, kBatchDatei));
  prog.AppLog(L"frmWaveEditor.CloseMe()", L"wave editor session closed");
  haupt.KatalogShow();
  prog.frmWaveEditor.Entladen();
  prog.plattform.schleife.MousePointer(Pointer::Normal);
}

// ---- the settings ----

// Each control beside its place in the record.
template <typename Weg>
void frmWaveEditor::AlleEffektWerte(Weg weg) {
  EffektWerte& w = prog.EffektEinstellung;
  weg(chkEQBypass, w.EQAktiv);
  weg(chkDenoiserAktiv, w.DenoiserAktiv);
  weg(chkDecrackleAktiv, w.DecrackleAktiv);
  weg(chkDeclickAktiv, w.DeclickAktiv);
  weg(chkLoudness, w.LoudnessAktiv);
  weg(chkVolume, w.VolumeAktiv);
  weg(chkGateraktiv, w.GaterAktiv);
  weg(chkFlangerAktiv, w.FlangerAktiv);
  weg(chkReverbbypass, w.HallAktiv);
  weg(slDenoiser, w.DenoiserWert);
  weg(slDecrackle, w.DecrackleWert);
  weg(slDeclick, w.DeclickWert);
  for (int i = 0; i < kEqBaender; ++i) {
    weg(MMSliderX1(i), w.EQBand[static_cast<std::size_t>(i)]);
  }
  weg(slVolume, w.Lautstaerke);
  weg(slGaterThreshold, w.GaterSchwelle);
  weg(slGaterAttack, w.GaterZeit);
  weg(slFlangerMix, w.FlangerMix);
  weg(slFlangerFeedback, w.FlangerFeedback);
  weg(slFlangerDepth, w.FlangerTiefe);
  weg(slFlangerRate, w.FlangerRate);
  weg(sliderOutputGain, w.HallGain);
  weg(sliderFeedBack, w.HallFeedback);
}

namespace {

struct Merken {
  void operator()(const CheckBox& kasten, bool& wert) const { wert = kasten.Value() == 1; }
  void operator()(const Slider& schieber, std::int16_t& wert) const {
    wert = Ganz16(schieber.Value());
  }
  void operator()(const Slider& schieber, std::int32_t& wert) const { wert = schieber.Value(); }
};

}  // namespace

void frmWaveEditor::EffektWerteMerken() {
  AlleEffektWerte(Merken{});
  prog.EffektEinstellung.HallPreset = Ganz16(comboPreset.ListIndex());
  prog.EffektEinstellung.Gueltig = true;
}

void frmWaveEditor::EffektWerteLaden() {
  AlleEffektWerte([this](auto& control, const auto& wert) { Setzen(control, wert); });
  const int raum = prog.EffektEinstellung.HallPreset;
  if (raum >= comboPreset.ListCount()) return;  // the file of the rooms has changed meanwhile
  comboPreset.ListIndex = raum;
  comboPreset_Click();
}

}  // namespace vantora
