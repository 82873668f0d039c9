#include "medley/ueberblendung.h"

#include "app/programm.h"
#include "app/werte/feld.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"
#include "klang/mischung.h"

#include "platform/cd_sound.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace vantora {

namespace {

constexpr double kWerteJeSekunde = 88200;  // samples of both channels
constexpr double kLaengsteSekunden = 600;  // a longer crossfade would only need memory
constexpr std::int64_t kMindestBytes = 617400;
constexpr std::int64_t kBlockBytes = 524288;
constexpr std::int64_t kWertBytes = 2;
constexpr double kPitchJeVerhaeltnis = 25;
constexpr int kStereo = 1;

constexpr const wchar_t* kEndeDatei = L"xfade.dat";
constexpr const wchar_t* kGleitDatei = L"xfade2.dat";
constexpr const wchar_t* kVorschauDatei = L"temp00.dat";

Text ImTempOrdner(const Programm& prog, const wchar_t* name) {
  return AddBackslash(prog.Temporary_Directory.Getrimmt()) + name;
}

Text Zeile(const MedleyEintrag& eintrag, int nummer) {
  return ZahlText(nummer) + L". " + eintrag.Titel.Getrimmt();
}

// The pitch at the end of a slide between two tempi.
double Endwert(double tempo1, double tempo2) {
  if (tempo1 == tempo2) return 0;
  if (tempo1 < tempo2) return Quotient(tempo2, tempo1) * kPitchJeVerhaeltnis;
  return Quotient(tempo1, tempo2) * -kPitchJeVerhaeltnis;
}

}  // namespace

Ueberblendung::Ueberblendung(Programm& programm, const CheckBox& haken)
    : prog(programm), chkPitch(haken) {
  MMTools& werkzeug = prog.plattform.mmtools;
  SourceFile = werkzeug.NewWaveFile();
  SourceFile2 = werkzeug.NewWaveFile();
  DestFile = werkzeug.NewWaveFileX();
  Rein = werkzeug.NewWaveFileX();
  Raus = werkzeug.NewWaveFileX();
  Pitcher = werkzeug.NewPitch();
  Trigger = werkzeug.NewTrigger();
  for (MMWaveFileX* datei : {DestFile.get(), Rein.get(), Raus.get()}) {
    datei->Wave.TimeFormat = TimeFormat::tfByte;
  }
  DestFile->Wave.FileMustExist = false;
  Raus->Wave.FileMustExist = false;
  Pitcher->SetInput(Rein.get());
  Trigger->SetInput(Pitcher.get());
  Trigger->SetOutput(Raus.get());
  Trigger->OnBufferLoad = [this] { Trigger_OnBufferLoad(); };
  Trigger->OnStop = [this] { Trigger_OnStop(); };
  Trigger->OnFailure = [this](const Laufzeitfehler& fehler) { Trigger_OnFailure(fehler); };
  WaveHelper.PcmFormat(WaveHelper.WaveFormatPtr(), kSampleBits, kChannels, kSampleRate);
}

Ueberblendung::~Ueberblendung() = default;

// ---- one transition ----

void Ueberblendung::UeberblendungBerechnen(int Index1, int Index2) {
  const MedleyEintrag a = Element(prog.Medley, Index1), b = Element(prog.Medley, Index2);
  geprueft_ = false;
  Werte werte;
  const auto lesen = [&] { werte = WerteLesen(a, b); };
  if (!Gelingt(30120, Zeile(a, Index1 + 1), lesen)) return;
  const auto laenge = static_cast<std::size_t>(werte.U + 1);
  Ausschnitt1.assign(laenge, 0);
  Ausschnitt2.assign(laenge, 0);

  const bool ohneTempo = werte.Tempo1 == 0 || werte.Tempo2 == 0;
  if (ohneTempo && chkPitch.Value() == 1) {
    // The crossfade stays silence.
    prog.MsgBoxen(prog.Text(13004), kHinweis);
    return;
  }
  if (!DateienGeeignet(a, b)) return;
  const bool gleitet = a.PitchKorrektur != 0;
  if (ohneTempo && gleitet && werte.Tempo1 != werte.Tempo2) {
    Ablehnen(prog.Text(13004));
    return;
  }

  const Text datei1 = a.Datei.Getrimmt(), datei2 = b.Datei.Getrimmt();
  if (!Gelingt(30121, datei1,
               [&] { Lesen(*SourceFile, datei1, groesse1_ - Bytes(), Ausschnitt1); }))
    return;
  if (!Gelingt(30121, datei2, [&] { Lesen(*SourceFile2, datei2, 0, Ausschnitt2); })) return;
  Gelingt(30123, prog.Temporary_Directory.Getrimmt(), [&] {
    TempSchreiben(kEndeDatei);
    Gleiten(gleitet ? Endwert(werte.Tempo1, werte.Tempo2) : 0);
  });
}

void Ueberblendung::UeberblendungAusfuehren(int Index1, int Index2) {
  MedleyFehler = false;
  const MedleyEintrag a = Element(prog.Medley, Index1), b = Element(prog.Medley, Index2);
  UeberblendungBerechnen(Index1, Index2);
  if (MedleyFehler) return;
  // When the crossfade is silence, the files have not been checked yet.
  if (!geprueft_ && !DateienGeeignet(a, b)) return;

  const Text datei1 = a.Datei.Getrimmt(), datei2 = b.Datei.Getrimmt();
  std::vector<Text> getan = getan_;
  getan.insert(getan.begin(), Zeile(a, Index1 + 1) + L" > " + Zeile(b, Index2 + 1));
  const bool geschrieben = Gelingt(30124, datei1 + kZeilenEnde + datei2, [&] {
    for (const Text& datei : {datei1, datei2}) prog.plattform.dateien.SetAttrNormal(datei);
    Edit vorhaben = Vorhaben(datei1, datei2);
    vorhaben.RunReport = getan;
    vorhaben.Progress = [this](int) { prog.plattform.schleife.DoEvents(); };
    try {
      prog.plattform.edits.Apply(vorhaben);
    } catch (const FinishedAfterError& fehler) {
      prog.MsgBoxen(prog.Text(30125) + ZeilenListe({datei1, datei2, fehler.Beschreibung}),
                    kWarnung);
    }
  });
  if (geschrieben) getan_ = std::move(getan);
}

Ueberblendung::Werte Ueberblendung::WerteLesen(const MedleyEintrag& a,
                                               const MedleyEintrag& b) const {
  Werte werte;
  werte.Tempo1 = Runden(Val(a.BPM));
  werte.Tempo2 = Runden(Val(b.BPM));
  const double sekunden = Val(a.Dauer);
  // Whole frames only: otherwise cutting the second file would shift its samples within a frame.
  if (sekunden <= kLaengsteSekunden) werte.U = Ganz64(sekunden * kWerteJeSekunde);
  werte.U -= werte.U % kFrameBytes;
  if (werte.U <= 0) throw Laufzeitfehler(kFehlerUngueltigerAufruf, a.BPM + L" / " + a.Dauer);
  return werte;
}

// ---- the files ----

bool Ueberblendung::DateienGeeignet(const MedleyEintrag& a, const MedleyEintrag& b) {
  const Text datei1 = a.Datei.Getrimmt(), datei2 = b.Datei.Getrimmt();
  if (Ucase(datei1) == Ucase(datei2)) return Ablehnen(prog.Text(13000));
  for (const bool erste : {true, false}) {
    const Text& datei = erste ? datei1 : datei2;
    std::int64_t& groesse = erste ? groesse1_ : groesse2_;
    bool format = false;
    if (!Gelingt(30121, datei, [&] { groesse = Groesse(datei, format); })) return false;
    if (groesse < Bytes() || groesse < kMindestBytes) return Ablehnen(prog.Text(13003));
    if (!format) return Ablehnen(prog.Text(30122) + ZeilenListe({datei}));
  }
  bool dieselbe = false;
  Dateien& dateien = prog.plattform.dateien;
  if (!Gelingt(30121, datei2,
               [&] { dieselbe = dateien.Stand(datei1).SameFile(dateien.Stand(datei2)); })) {
    return false;
  }
  if (dieselbe) return Ablehnen(prog.Text(13000));  // two names of the same file
  geprueft_ = true;
  return true;
}

std::int64_t Ueberblendung::Groesse(const Text& datei, bool& format) {
  prog.plattform.edits.Ready(datei);  // finishes an edit that a disk error has interrupted
  const MMWaveFormat& soll = *WaveHelper.WaveFormatPtr();
  SourceFile->Open(datei);
  const std::int64_t bytes = SourceFile->DataBytes();
  format = SourceFile->BitsPerSample() == soll.BitsPerSample &&
           SourceFile->SampleRate() == soll.SampleRate && SourceFile->StereoMode() == kStereo;
  SourceFile->Close();
  return bytes;
}

void Ueberblendung::Lesen(MMWave& quelle, const Text& datei, std::int64_t stelle,
                          std::vector<std::int16_t>& ziel) {
  quelle.Open(datei);
  quelle.SetPosition(stelle);
  const auto bytes = static_cast<std::size_t>(Bytes());
  const bool ganz = quelle.Read(ziel.data(), bytes) == bytes;
  quelle.Close();
  if (!ganz) throw Laufzeitfehler(kFehlerDateiEnde, L"El archivo ha cambiado");
}

void Ueberblendung::TempSchreiben(const wchar_t* name) {
  const Text datei = ImTempOrdner(prog, name);
  MMWaveObject& ziel = DestFile->Wave;
  ziel.SetFileName(datei);
  if (prog.DateiExistiert(datei)) prog.plattform.dateien.Kill(datei);
  ziel.Open();
  ziel.WriteData(Ausschnitt1.data(), static_cast<std::size_t>(Bytes()));
  ziel.Close();
}

// The first half of the crossfade goes to the end of the first file, the second half to the start
// of the second file.
Edit Ueberblendung::Vorhaben(const Text& datei1, const Text& datei2) const {
  const std::int64_t u = Bytes() / 2;
  const auto* const mitte = reinterpret_cast<const char*>(Ausschnitt1.data()) + u;
  Edit vorhaben;
  vorhaben.Waves.resize(2);
  WaveEdit& erste = vorhaben.Waves[0];
  erste.File = datei1;
  erste.Before = groesse1_;
  erste.After = groesse1_ - u;
  erste.Steps.push_back(MixStep(groesse1_ - 2 * u, {mitte - u, mitte}));
  WaveEdit& zweite = vorhaben.Waves[1];
  zweite.File = datei2;
  zweite.Before = groesse2_;
  zweite.After = groesse2_ - u;
  zweite.Steps.push_back(MixStep(0, {mitte, mitte + u}));
  for (std::int64_t von = 2 * u; von < groesse2_; von += kBlockBytes) {
    zweite.Steps.push_back(MoveStep(von, von - u, std::min(kBlockBytes, groesse2_ - von)));
  }
  return vorhaben;
}

std::int64_t Ueberblendung::Bytes() const {
  return (static_cast<std::int64_t>(Ausschnitt1.size()) - 1) * kWertBytes;
}

// ---- the slide of the tempo ----

void Ueberblendung::Gleiten(double endwert) {
  MMWaveObject& quelle = Rein->Wave;
  quelle.SetFileName(ImTempOrdner(prog, kEndeDatei));
  quelle.Open();
  quelle.PlayStart = 0;
  quelle.PlayEnd = quelle.DataSize();
  Raus->Wave.SetFileName(ImTempOrdner(prog, kGleitDatei));
  Pitcher->Pitch = 0;
  PitchSchritt = static_cast<double>(Trigger->BufferSize) / static_cast<double>(Bytes()) * endwert;
  kettenfehler_.reset();
  MixLaeuft = true;
  Trigger->Start();
  while (MixLaeuft) prog.plattform.schleife.DoEvents();
  if (kettenfehler_) throw Laufzeitfehler(*kettenfehler_);
}

void Ueberblendung::Trigger_OnBufferLoad() {
  Pitcher->Pitch = static_cast<float>(static_cast<double>(Pitcher->Pitch) + PitchSchritt);
}

void Ueberblendung::Trigger_OnStop() {
  try {
    Trigger->Close();
    Rein->Wave.Close();
    Raus->Wave.Close();
    // If the result is shorter, silence fills the end; if it is longer, the rest is cut.
    std::fill(Ausschnitt1.begin(), Ausschnitt1.end(), std::int16_t{0});
    SourceFile->Open(Raus->Wave.FileName());
    SourceFile->Read(Ausschnitt1.data(), static_cast<std::size_t>(Bytes()));
    SourceFile->Close();
    LinearMischen(Ausschnitt1.data(), Ausschnitt2.data(), Ausschnitt1.size() - 1);
  } catch (const Laufzeitfehler& fehler) {
    kettenfehler_ = fehler;
  }
  MixLaeuft = false;
}

// The procedure that waits for the slide reports the error.
void Ueberblendung::Trigger_OnFailure(const Laufzeitfehler& fehler) {
  kettenfehler_ = fehler;
  for (MMWaveFileX* datei : {Rein.get(), Raus.get()}) Weiter([&] { datei->Wave.Close(); });
  MixLaeuft = false;
}

// ---- start and end of a run ----

void Ueberblendung::LaufBeginnen() {
  getan_.clear();
  prog.plattform.edits.EndRun();
}

// An undo brings back older rows, but not the files as they were. So the undo copy is marked too.
bool Ueberblendung::KatalogMarkieren() {
  LaufBeginnen();
  if (MedleyFehler) return false;
  for (const MedleyEintrag& zeile : prog.Medley) {
    const Text datei = Ucase(zeile.Datei.Getrimmt());
    if (datei.empty()) continue;
    for (KatalogFeld* katalog : {&prog.Katalog, &prog.KatalogBackup}) {
      for (KatalogEintrag& eintrag : *katalog) {
        if (Ucase(eintrag.Datei.Getrimmt()) != datei) continue;
        eintrag.Ueberblendet = -1;
        prog.KatalogGeaendert = true;  // saving the catalog would put pauses into the crossfades
      }
    }
  }
  return true;
}

Text Ueberblendung::VorschauSchreiben() {
  const auto schreiben = [this] { TempSchreiben(kVorschauDatei); };
  if (!Gelingt(30123, prog.Temporary_Directory.Getrimmt(), schreiben)) return {};
  return ImTempOrdner(prog, kVorschauDatei);
}

// The file name is appended to the setting as it is, so in a folder without a final "\" no file is
// found.
void Ueberblendung::TempDateienLoeschen() {
  for (const wchar_t* name : {kEndeDatei, kGleitDatei, kVorschauDatei}) {
    const Text datei = prog.Temporary_Directory.Getrimmt() + name;
    if (prog.DateiExistiert(datei)) Weiter([&] { prog.plattform.dateien.Kill(datei); });
  }
}

// ---- refusals ----

bool Ueberblendung::Gelingt(int text, const Text& was, const std::function<void()>& arbeit) {
  try {
    arbeit();
    return true;
  } catch (const Laufzeitfehler& fehler) {
    for (MMWave* datei : {SourceFile.get(), SourceFile2.get()}) Weiter([&] { datei->Close(); });
    Weiter([&] { DestFile->Wave.Close(); });
    prog.AppLog(L"Ueberblendung", ZahlText(fehler.Nummer) + L" " + fehler.Beschreibung);
    return Ablehnen(prog.Text(text) + ZeilenListe({was, fehler.Beschreibung}));
  }
}

bool Ueberblendung::Ablehnen(const Text& meldung) {
  MedleyFehler = true;
  prog.MsgBoxen(meldung, kHinweis);
  return false;
}

}  // namespace vantora
