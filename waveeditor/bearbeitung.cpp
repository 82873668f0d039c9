#include "waveeditor/bearbeitung.h"

#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"
#include "klang/klang_frame.h"

#include <algorithm>
#include <utility>

namespace vantora {

namespace {

constexpr std::size_t kWurzel = 3;  // "C:\"
constexpr int kVollePegel = 100;    // percent

enum UndoSchritt : std::int16_t { kUndoCut = 1, kUndoBlock = 2, kUndoPaste = 3 };

Text UndoName(std::int16_t schritt) {
  switch (schritt) {
    case kUndoCut:
      return L"UndoCut";
    case kUndoBlock:
      return L"UndoBlockProcess";
    case kUndoPaste:
      return L"UndoPaste";
    default:
      return L"";
  }
}

std::int32_t InBytes(double frames) {
  return Ganz32(frames * static_cast<double>(kFrameBytes));
}

std::int64_t GanzeFrames(std::int64_t bytes) {
  return std::max<std::int64_t>(bytes / kFrameBytes * kFrameBytes, 0);
}

// If an edit writes beyond the end of the file, silence fills the gap.
void Fuellen(WaveEdit& vorhaben, std::int64_t bis) {
  if (vorhaben.Before < bis) {
    vorhaben.Steps.push_back(ZeroStep(vorhaben.Before, bis - vorhaben.Before));
  }
}

}  // namespace

Bearbeitung::Bearbeitung(Programm& programm, Auswahl& auswahl, MMWaveFileX& quelle,
                         EditorFenster& fenster)
    : prog(programm),
      auswahl_(auswahl),
      SourceFile(quelle),
      fenster_(fenster),
      Wave1(programm.plattform.mmtools.NewWaveFileX()),
      Wave2(programm.plattform.mmtools.NewWaveFileX()) {
  Wave1->Wave.TimeFormat = Wave2->Wave.TimeFormat = TimeFormat::tfByte;
  Wave2->Wave.FileMustExist = false;
}

void Bearbeitung::Beginnen() {
  UndoDatei = FreierName(L"undo2.dat");
  CopyDatei_ = FreierName(L"copy.dat");
  if (prog.DateiExistiert(CopyDatei_)) prog.plattform.dateien.Kill(CopyDatei_);
  UndoVorhanden_ = false;
}

void Bearbeitung::Beenden() {
  for (const Text& datei : {UndoDatei, CopyDatei_}) {
    const bool frei = !datei.empty() && !prog.plattform.edits.Needs(datei);
    if (frei && prog.DateiExistiert(datei)) Weiter([&] { prog.plattform.dateien.Kill(datei); });
  }
}

// Returns another name if an unfinished edit may still have to read the file of that name.
Text Bearbeitung::FreierName(const wchar_t* name) const {
  const Text ordner = AddBackslash(prog.Temporary_Directory.Getrimmt());
  Text datei = ordner + name;
  for (int i = 2; prog.plattform.edits.Needs(datei); ++i) datei = ordner + ZahlText(i) + name;
  return datei;
}

// ---- what all edits share ----

bool Bearbeitung::NichtsGewaehlt() {
  if (auswahl_.Bereich()) return false;
  prog.MsgBoxen(prog.Text(21003), kHinweis);
  return true;
}

bool Bearbeitung::PlatzFehlt(const Text& ort, double bytes) {
  if (prog.FreierPlatz(ort) >= bytes) return false;
  prog.MsgBoxen(prog.Text(8056), kHinweis);
  return true;
}

WaveEdit Bearbeitung::Vorhaben() {
  MMWaveObject& wave = Wave1->Wave;
  wave.SetFileName(fenster_.WorkDatei());
  wave.Open();
  const std::int64_t bytes = wave.DataSize();
  wave.Close();
  return {fenster_.WorkDatei(), bytes, bytes, {}};
}

// When an edit fails before it has changed the file, there is nothing to undo. When an undo fails
// before it has changed the file, the undo can be tried again.
void Bearbeitung::Aendern(const std::function<void()>& arbeit) {
  try {
    arbeit();
  } catch (const FinishedAfterError&) {
    if (ImUndo_) UndoVorhanden_ = false;
    throw;
  } catch (const Laufzeitfehler&) {
    if (!ImUndo_) UndoVorhanden_ = false;
    throw;
  }
}

void Bearbeitung::Ausfuehren(WaveEdit vorhaben) {
  const Edit edit{{std::move(vorhaben)}, {}};
  Aendern([&] { prog.plattform.edits.Apply(edit); });
  fenster_.NeuZeigen();
}

bool Bearbeitung::Vorbereiten() {
  return prog.plattform.edits.Ready(fenster_.WorkDatei());
}

void Bearbeitung::NachFehler() {
  ImUndo_ = false;
  for (MMWaveFileX* datei : {Wave1.get(), Wave2.get()}) Weiter([&] { datei->Wave.Close(); });
}

// ---- undo store and clipboard ----

bool Bearbeitung::PrepareUndo() {
  if (ImUndo_) return false;
  MMWaveObject& quelle = SourceFile.Wave;
  const Text datei = quelle.FileName();
  const auto laenge = [&] { return prog.plattform.dateien.FileLen(datei); };
  if (PlatzFehlt(Links(datei, kWurzel), static_cast<double>(prog.UndoMB * kMB)) ||
      PlatzFehlt(AddBackslash(prog.Temporary_Directory.Getrimmt()),
                 static_cast<double>(laenge()))) {
    fenster_.Status(L"");
    return false;
  }
  quelle.Close();
  // Otherwise nothing is stored, and an older undo can still be made.
  if (prog.Undo && laenge() / kMB <= prog.UndoMB) {
    prog.AppLog(L"PrepareUndo()", L"preparing undo");
    fenster_.Status(prog.Text(21606));
    quelle.SetFileName(fenster_.WorkDatei());
    quelle.Open();
    quelle.PlayStart = auswahl_.MarkerAnfang;
    quelle.PlayEnd = auswahl_.MarkerEnde;
    UndoVorhanden_ = false;  // the older undo is overwritten
    quelle.SaveRange(UndoDatei);
    quelle.Close();
    quelle.PlayStart = 0;
    quelle.PlayEnd = quelle.DataSize();
    UndoStart = auswahl_.MarkerAnfang;
    UndoVorhanden_ = true;
  }
  return true;
}

bool Bearbeitung::CopyWave() {
  prog.AppLog(L"CopyWave", L"copying wave");
  const auto ohneErfolg = [this](const Text& grund) {
    prog.AppLog(L"CopyWave", grund);
    fenster_.Status(L"");
    return false;
  };
  if (NichtsGewaehlt()) return ohneErfolg(L"WrongMarker Set");
  if (PlatzFehlt(Links(CopyDatei_, kWurzel), static_cast<double>(prog.UndoMB * kMB))) {
    return ohneErfolg(L"No Undo Buffer  ");
  }
  const Text ordner = Links(CopyDatei_, CopyDatei_.size() - DateiNameOhnePfad(CopyDatei_).size());
  const auto laenge =
      static_cast<double>(prog.plattform.dateien.FileLen(SourceFile.Wave.FileName()));
  if (PlatzFehlt(ordner, laenge)) return ohneErfolg(L"Not enough TempSpace on HD");
  if (prog.DateiExistiert(CopyDatei_)) prog.plattform.dateien.Kill(CopyDatei_);
  MMWaveObject& wave = Wave1->Wave;
  wave.SetFileName(fenster_.WorkDatei());
  wave.Open();
  wave.PlayStart = InBytes(auswahl_.MarkerAnfang);
  wave.PlayEnd = InBytes(auswahl_.MarkerEnde);
  wave.SaveRange(CopyDatei_);
  wave.Close();
  return true;
}

// ---- cut and paste ----

void Bearbeitung::CutWave() {
  if (NichtsGewaehlt() || !PrepareUndo()) return;
  if (!ImUndo_) {
    iUndoStep = kUndoCut;
    bool kopiert = false;
    Aendern([&] { kopiert = CopyWave(); });
    if (!kopiert) return;
  }
  prog.AppLog(L"CutWave", L"cutting wave");
  SourceFile.Wave.Close();
  Aendern([this] {
    prog.plattform.tsCut.Cut(fenster_.WorkDatei(), auswahl_.MarkerAnfang, auswahl_.MarkerEnde);
  });
  fenster_.NeuZeigen();
}

void Bearbeitung::PasteWave() {
  const std::int32_t stelle = auswahl_.Stelle();
  const std::int32_t ende = auswahl_.MarkerEnde;
  auswahl_.MarkerAnfang = stelle;
  auswahl_.MarkerEnde = SourceFile.Wave.DataSize();
  PrepareUndo();
  auswahl_.MarkerEnde = ende;
  if (!ImUndo_) iUndoStep = kUndoPaste;
  prog.AppLog(L"PasteWave", L"pasting wave");

  MMWaveObject& ablage = Wave2->Wave;
  ablage.SetFileName(CopyDatei_);
  ablage.Open();
  const bool leer = ablage.Empty();
  if (!leer) PasteLaenge = ablage.DataSize() / kFrameBytes;
  ablage.Close();
  if (leer) {
    prog.MsgBoxen(prog.Text(21004), kHinweis);
    return;
  }

  WaveEdit vorhaben = Vorhaben();
  const std::int64_t ab = InBytes(stelle), neu = InBytes(PasteLaenge);
  const std::int64_t rest = GanzeFrames(vorhaben.Before - ab);
  vorhaben.After = Ganz32(static_cast<double>(ab + neu + rest));
  // The sound behind the place is moved to make room for the clipboard.
  Fuellen(vorhaben, ab);
  vorhaben.Steps.push_back(MoveStep(ab, ab + neu, rest));
  vorhaben.Steps.push_back(CopyStep(CopyDatei_, 0, ab, neu));
  Ausfuehren(std::move(vorhaben));
}

// ---- mute and fades ----

void Bearbeitung::MuteWave() {
  if (NichtsGewaehlt()) return;
  PrepareUndo();
  prog.AppLog(L"MuteWave", L"muting wave");
  iUndoStep = kUndoBlock;
  WaveEdit vorhaben = Vorhaben();
  const std::int64_t ab = InBytes(auswahl_.MarkerAnfang), bis = InBytes(auswahl_.MarkerEnde);
  Fuellen(vorhaben, ab);
  vorhaben.Steps.push_back(ZeroStep(ab, bis - ab));
  vorhaben.After = std::max(vorhaben.Before, bis);
  Ausfuehren(std::move(vorhaben));
}

void Bearbeitung::FadeOutWave() {
  if (NichtsGewaehlt()) return;
  PrepareUndo();
  prog.AppLog(L"FadeOutWave", L"fading out wave");
  Blenden(1, -1);
}

void Bearbeitung::FadeInWave() {
  if (NichtsGewaehlt()) return;
  PrepareUndo();
  prog.AppLog(L"FadeInWave", L"fading in wave");
  Blenden(0, 1);
}

void Bearbeitung::Blenden(double start, double richtung) {
  iUndoStep = kUndoBlock;
  WaveEdit vorhaben = Vorhaben();
  const std::int64_t ab = InBytes(auswahl_.MarkerAnfang), bis = InBytes(auswahl_.MarkerEnde);
  const double schritt = Quotient(1, auswahl_.MarkerEnde - auswahl_.MarkerAnfang);
  const std::int64_t bytes = GanzeFrames(std::min(bis, vorhaben.Before) - ab);
  vorhaben.Steps.push_back(RampStep(ab, bytes, start, richtung * schritt));
  Ausfuehren(std::move(vorhaben));
}

// ---- normalize ----

bool Bearbeitung::PlatzZumNormalisieren() {
  const MMWaveObject& quelle = SourceFile.Wave;
  return !PlatzFehlt(Links(quelle.FileName(), kWurzel), InBytes(quelle.DataSize()));
}

void Bearbeitung::NormalizeWave() {
  auswahl_.MarkerEnde = SourceFile.Wave.DataSize();
  auswahl_.MarkerAnfang = 0;
  PrepareUndo();
  prog.AppLog(L"NormalizeWave", L"normalizing wave");
  iUndoStep = kUndoBlock;
  const auto fortschritt = [this](int phase, int prozent) {
    NormalizePhase_ = phase;
    NormalizeProzent_ = prozent;
    prog.plattform.schleife.DoEvents();  // so that the timer shows the progress
  };
  fenster_.NormalizeUhr(true);
  const auto arbeit = [&] {
    prog.plattform.mmtools.NormalizeFile(fenster_.WorkDatei(), fortschritt, kVollePegel);
  };
  Jedenfalls([&] { Aendern(arbeit); }, [this] { fenster_.NormalizeUhr(false); });
  fenster_.NeuZeigen();
}

// ---- undo ----

bool Bearbeitung::UndoMoeglich() {
  int grund = 0;
  if (!prog.Undo) {
    grund = 21000;
  } else if (prog.plattform.dateien.FileLen(prog.WaveEditorDatei) / kMB > prog.UndoMB) {
    grund = 21001;
  } else if (!UndoVorhanden_) {
    grund = 21002;
  }
  if (grund != 0) prog.MsgBoxen(prog.Text(grund), kHinweis);
  return grund == 0;
}

void Bearbeitung::UndoWave() {
  SourceFile.Wave.Close();
  fenster_.Status(prog.Text(21602));
  ImUndo_ = true;
  prog.AppLog(L"UndoWave", L"iUndoStep = " + UndoName(iUndoStep));
  if (iUndoStep == kUndoPaste) {
    // CutWave cuts nothing while an undo is at work, so the pasted sound stays in the file.
    auswahl_.MarkerAnfang = UndoStart;
    auswahl_.MarkerEnde = PasteLaenge;
    CutWave();
  } else if (iUndoStep == kUndoCut) {
    auswahl_.NurCursor = true;
    auswahl_.CursorPos = UndoStart;
    PasteWave();
  } else if (iUndoStep == kUndoBlock) {
    UndoBlock();
  }
  fenster_.NeuZeigen();
  UndoVorhanden_ = false;
  ImUndo_ = false;
}

void Bearbeitung::UndoBlock() {
  WaveEdit vorhaben = Vorhaben();
  MMWaveObject& quelle = Wave2->Wave;
  quelle.SetFileName(UndoDatei);
  quelle.Open();
  const std::int64_t bytes = GanzeFrames(quelle.DataSize()), ab = InBytes(UndoStart);
  quelle.Close();
  Fuellen(vorhaben, ab);
  vorhaben.Steps.push_back(CopyStep(UndoDatei, 0, ab, bytes));
  vorhaben.After = std::max(vorhaben.Before, ab + bytes);
  Ausfuehren(std::move(vorhaben));
}

}  // namespace vantora
