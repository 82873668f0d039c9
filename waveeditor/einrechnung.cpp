#include "waveeditor/einrechnung.h"

#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zeichen.h"
#include "klang/klang_frame.h"

#include <cstdint>

namespace vantora {

namespace {

constexpr const wchar_t* kApplyDatei = L"temp001.dat";
constexpr const wchar_t* kBatchDatei = L"temp.001";
constexpr int kLoslassenMs = 500;  // time until the system has released the written file
constexpr int kWartenMs = 50;

Text ImTempOrdner(const Programm& prog, const wchar_t* name) {
  return AddBackslash(prog.Temporary_Directory.Getrimmt()) + name;
}

}  // namespace

Einrechnung::Einrechnung(Programm& programm, EffektKette& kette, PictureButton& knopf,
                         EditorFenster& fenster)
    : prog(programm), kette_(kette), knopf_(knopf), fenster_(fenster) {
  kette_.Trigger().OnStop = [this] { Trigger_OnStop(); };
  kette_.Trigger().OnFailure = [this](const Laufzeitfehler& fehler) { Trigger_OnFailure(fehler); };
}

EffektKette::Ende Einrechnung::Ende() const {
  return EinrechnenLaeuft_ || BatchLaeuft_ ? EffektKette::Ende::Datei
                                           : EffektKette::Ende::Lautsprecher;
}

// The result is a file of 16 bits in stereo, whatever the source was. Another program may have put
// a file of another format in its place since the catalog was shown.
void Einrechnung::QuelleMerken(const Text& datei) {
  Quelle_ = prog.plattform.dateien.Stand(datei);
  const std::unique_ptr<MMWave> wave = prog.plattform.mmtools.NewWaveFile();
  wave->Open(datei);
  if (wave->BitsPerSample() != kSampleBits || wave->SampleRate() != kSampleRate ||
      wave->StereoMode() != 1) {
    throw Laufzeitfehler(kFehlerEinAusgabe, L"El archivo no es de 44,1 kHz, 16 bits y estéreo");
  }
}

// ---- the file that is open ----

void Einrechnung::Einrechnen() {
  if (EinrechnenLaeuft_ || fenster_.Veraendert()) return;
  QuelleMerken(fenster_.WorkDatei());
  prog.AppLog(L"Einrechnen", L"starting....");
  fenster_.Status(prog.Text(7241));
  MMWaveObject& quelle = kette_.SourceFile().Wave;
  quelle.Close();
  quelle.Open();
  quelle.PlayStart = 0;
  quelle.PlayEnd = quelle.DataSize();
  KnopfBild(knopf_);
  if (quelle.Empty()) return;
  BatchLaeuft_ = false;
  EinrechnenLaeuft_ = true;
  // The window is locked before events run, because playing or leaving would spoil the file.
  fenster_.Sperren(true);
  try {
    fenster_.RuntimeConnections();
    kette_.Auffrischen();
    kette_.DestFile().Wave.SetFileName(ImTempOrdner(prog, kApplyDatei));
    fenster_.Status(prog.Text(7242));
    prog.plattform.schleife.DoEvents();
    kette_.Trigger().Start();
  } catch (const Laufzeitfehler&) {
    Abschliessen();
    throw;
  }
}

// ---- the end of a file ----

void Einrechnung::Trigger_OnStop() {
  const bool stapel = BatchLaeuft_;
  const Text datei = fenster_.WorkDatei();
  try {
    // The editor shows the source again, even after a failure.
    Jedenfalls([this] { ErgebnisUebernehmen(); }, [this] { Abschliessen(); });
  } catch (const Laufzeitfehler& fehler) {
    if (!stapel) throw;
    prog.StapelFehlerMelden(datei, fehler, 30136);
  }
}

void Einrechnung::ErgebnisUebernehmen() {
  kette_.Trigger().Stop();
  MMWaveObject &quelle = kette_.SourceFile().Wave, &ziel = kette_.DestFile().Wave;
  const std::int64_t bytes = std::int64_t{quelle.PlayEnd} * kFrameBytes;
  ziel.Close();
  quelle.Close();
  EinrechnenLaeuft_ = false;  // the chain ends at the loudspeaker again
  fenster_.RuntimeConnections();
  prog.AppLog(L"Trigger_OnStop()", L"trigger finished");
  prog.plattform.schleife.DoEvents();
  prog.Pausieren(kLoslassenMs);
  const Text ergebnis = ziel.FileName();
  // Another program may have shortened the file, so that the sound ended early, or have put another
  // one in its place. The file then stays as it is.
  Dateien& dateien = prog.plattform.dateien;
  if (dateien.FileLen(ergebnis) < bytes || dateien.Stand(fenster_.WorkDatei()) != Quelle_) {
    throw Laufzeitfehler(kFehlerDateiEnde, L"El archivo ha cambiado");
  }
  dateien.FileCopy(ergebnis, fenster_.WorkDatei());
  dateien.Kill(ergebnis);
}

void Einrechnung::Abschliessen() {
  if (BatchLaeuft_) {
    BatchLaeuft_ = false;
    fenster_.StapelFertig();
    return;
  }
  EinrechnenLaeuft_ = false;
  MMWaveObject& quelle = kette_.SourceFile().Wave;
  quelle.SetFileName(fenster_.WorkDatei());
  Weiter([&] { quelle.Open(); });
  Weiter([&] { fenster_.KlangZeigen(); });
  fenster_.Sperren(false);
}

void Einrechnung::Trigger_OnFailure(const Laufzeitfehler& fehler) {
  Trigger_OnError();
  if (!BatchLaeuft_) throw fehler;
  prog.StapelFehlerMelden(fenster_.WorkDatei(), fehler, 30134);
}

// The window stays locked and a batch goes on waiting, because the same render would fail again.
void Einrechnung::Trigger_OnError() {
  kette_.Trigger().Stop();
  TriggerSteht = true;
  prog.AppLog(L"Trigger_OnError", L"Trigger Error aufgetreteten.");
}

// ---- a file of a batch ----

void Einrechnung::StapelDatei() {
  const Text datei = fenster_.WorkDatei();
  prog.plattform.dateien.SetAttrNormal(datei);
  QuelleMerken(datei);
  MMWaveObject& quelle = kette_.SourceFile().Wave;
  quelle.Close();
  quelle.SetFileName(datei);
  quelle.Open();
  quelle.Close();
  quelle.Open();
  quelle.PlayStart = 0;
  quelle.PlayEnd = quelle.DataSize();
  WaveHelper.PcmFormat(WaveHelper.WaveFormatPtr(), kSampleBits, kChannels, kSampleRate);
  kette_.DestFile().Wave.SetFileName(ImTempOrdner(prog, kBatchDatei));
  prog.AppLog(L"frmWaveEditor.Einrechen2", L"starting trigger");
  kette_.Trigger().Start();
  while (BatchLaeuft_) {
    prog.plattform.schleife.DoEvents();
    if (TriggerSteht) prog.plattform.schleife.Sleep(kWartenMs);
  }
}

void Einrechnung::Aufraeumen() {
  for (const wchar_t* name : {kApplyDatei, kBatchDatei}) {
    const Text datei = ImTempOrdner(prog, name);
    if (prog.DateiExistiert(datei)) Weiter([&] { prog.plattform.dateien.Kill(datei); });
  }
}

}  // namespace vantora
