// Copy, cut, paste, mute, fades and normalize, and the undo of the last of them. The file changes
// on the disk at once, one block after the other; nothing is rolled back.

#include "app/programm.h"
#include "app/weiter.h"
#include "app/zahlen.h"
#include "app/zeichen.h"
#include "waveeditor/frmWaveEditor.h"

#include <algorithm>
#include <memory>

namespace vantora {

namespace {

constexpr std::int64_t kMB = 0x100000;
constexpr std::size_t kWurzel = 3;  // "C:\"
constexpr int kVollePegel = 100;    // percent
// A block is faded in strips, which stay in the processor's own memory between reading and writing,
// and begin where a line of that memory does.
constexpr std::int32_t kStreifenFrames = 0x10000;
constexpr std::size_t kSpeicherZeile = 64;  // bytes

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

}  // namespace

// ---- what all edits share ----

void frmWaveEditor::Ausfuehren(const std::function<void()>& arbeit) {
  EventLoop& schleife = prog.plattform.schleife;
  const auto frei = [this, &schleife] {
    Window.Enabled = true;
    schleife.MousePointer(Pointer::Normal);
  };
  schleife.MousePointer(Pointer::Hourglass);
  Window.Enabled = false;
  try {
    arbeit();
  } catch (const Laufzeitfehler&) {
    NachFehler();
    frei();
    throw;
  }
  // An edit that was refused half way has closed the file that is played and drawn.
  if (!SourceFile->Wave.IsOpen()) QuelleNeuOeffnen();
  frei();
}

// The file may be half edited: its header is made true, and the picture shows what it holds now.
void frmWaveEditor::NachFehler() {
  tmrNormalize.Enabled = false;
  ImUndo = false;
  Wave1->Wave.FileMustExist = true;
  for (MMWaveFileX* datei : {Wave1.get(), Wave2.get()}) Weiter([&] { datei->Wave.Close(); });
  Weiter([&] { NeuZeigen(); });
}

void frmWaveEditor::NeuZeigen() {
  SourceFile->Wave.SetFileName(WorkDatei);
  SourceFile->Wave.Open();
  ScanWave(picWave);
  DrawWave(picWave, picWaveBack);
}

bool frmWaveEditor::NichtsGewaehlt() {
  if (MarkerAnfang != 0 || MarkerEnde != 0) return false;
  prog.MsgBoxen(LoadResString(21003), kHinweis);
  return true;
}

bool frmWaveEditor::PlatzFehlt(const Text& ort, double bytes) {
  if (prog.FreierPlatz(ort) >= bytes) return false;
  prog.MsgBoxen(LoadResString(8056), kHinweis);
  return true;
}

std::int32_t frmWaveEditor::InBytes(std::int32_t frames) {
  return Ganz32(frames * static_cast<double>(sizeof(Frame)));
}

void frmWaveEditor::InBloecken(std::int32_t frames,
                               const std::function<void(std::int32_t frames)>& arbeit) {
  for (std::int32_t bloecke = frames / kBlockFrames; bloecke > 0; --bloecke) arbeit(kBlockFrames);
  if (frames % kBlockFrames > 0) arbeit(frames % kBlockFrames);
}

MMWaveObject& frmWaveEditor::WorkOeffnen() {
  MMWaveObject& wave = Wave1->Wave;
  wave.SetFileName(WorkDatei);
  wave.Open();
  return wave;
}

void frmWaveEditor::Wave2Uebertragen() {
  MMWaveObject& von = Wave2->Wave;
  const auto bytes = static_cast<std::size_t>(InBytes(von.DataSize() / InBytes(1)));
  if (Wave1->Wave.WriteFrom(von, bytes) < bytes) {
    throw Laufzeitfehler(kFehlerDateiEnde, L"El archivo ha cambiado");
  }
}

// ---- undo store and clipboard ----

bool frmWaveEditor::PrepareUndo() {
  if (ImUndo) return false;
  MMWaveObject& quelle = SourceFile->Wave;
  const Text datei = quelle.FileName();
  const auto laenge = [&] { return prog.plattform.dateien.FileLen(datei); };
  if (PlatzFehlt(Links(datei, kWurzel), static_cast<double>(prog.UndoMB * kMB)) ||
      PlatzFehlt(AddBackslash(prog.Temporary_Directory.Getrimmt()),
                 static_cast<double>(laenge()))) {
    lblStatus.Caption = L"";
    return false;
  }
  quelle.Close();
  // Otherwise an older undo stays armed.
  if (prog.Undo && laenge() / kMB <= prog.UndoMB) {
    prog.AppLog(L"PrepareUndo()", L"preparing undo");
    lblStatus.Caption = LoadResString(21606);
    quelle.SetFileName(WorkDatei);
    quelle.Open();
    quelle.PlayStart = MarkerAnfang;
    quelle.PlayEnd = MarkerEnde;
    UndoVorhanden = false;  // the older one is written over
    quelle.SaveRange(UndoDatei);
    quelle.Close();
    quelle.PlayStart = 0;
    quelle.PlayEnd = quelle.DataSize();
    UndoStart = MarkerAnfang;
    UndoVorhanden = true;
  }
  return true;
}

bool frmWaveEditor::CopyWave() {
  prog.AppLog(L"CopyWave", L"copying wave");
  const auto ohneErfolg = [this](const Text& grund) {
    prog.AppLog(L"CopyWave", grund);
    lblStatus.Caption = L"";
    return false;
  };
  if (NichtsGewaehlt()) return ohneErfolg(L"WrongMarker Set");
  if (PlatzFehlt(Links(CopyDatei, kWurzel), static_cast<double>(prog.UndoMB * kMB))) {
    return ohneErfolg(L"No Undo Buffer  ");
  }
  const Text ordner = Links(CopyDatei, CopyDatei.size() - DateiNameOhnePfad(CopyDatei).size());
  const auto laenge =
      static_cast<double>(prog.plattform.dateien.FileLen(SourceFile->Wave.FileName()));
  if (PlatzFehlt(ordner, laenge)) return ohneErfolg(L"Not enough TempSpace on HD");
  if (prog.DateiExistiert(CopyDatei)) prog.plattform.dateien.Kill(CopyDatei);
  MMWaveObject& wave = WorkOeffnen();
  wave.PlayStart = InBytes(MarkerAnfang);
  wave.PlayEnd = InBytes(MarkerEnde);
  wave.SaveRange(CopyDatei);
  wave.Close();
  return true;
}

// ---- cut and paste ----

void frmWaveEditor::CutWave() {
  if (NichtsGewaehlt() || !PrepareUndo()) return;
  if (!ImUndo) {
    iUndoStep = kUndoCut;
    if (!CopyWave()) return;
  }
  prog.AppLog(L"CutWave", L"cutting wave");
  SourceFile->Wave.Close();
  prog.plattform.tsCut.Cut(WorkDatei, MarkerAnfang, MarkerEnde);
  NeuZeigen();
}

void frmWaveEditor::PasteWave() {
  const std::int32_t stelle = NurCursor ? CursorPos : MarkerAnfang;
  const std::int32_t ende = MarkerEnde;
  MarkerAnfang = stelle;
  MarkerEnde = SourceFile->Wave.DataSize();
  PrepareUndo();
  MarkerEnde = ende;
  if (!ImUndo) iUndoStep = kUndoPaste;
  prog.AppLog(L"PasteWave", L"pasting wave");

  MMWaveObject& ablage = Wave1->Wave;
  ablage.FileMustExist = false;
  ablage.SetFileName(CopyDatei);
  ablage.Open();
  ablage.FileMustExist = true;  // for the file that is edited, which is not to be made anew
  const bool leer = ablage.Empty();
  if (!leer) PasteLaenge = ablage.DataSize() / InBytes(1);
  ablage.Close();
  if (leer) {
    prog.MsgBoxen(LoadResString(21004), kHinweis);
    return;
  }

  // Told before a sample is lost: the file would be longer than a wave can be.
  Ganz32(static_cast<double>(prog.plattform.dateien.FileLen(WorkDatei)) + 4.0 * PasteLaenge);
  // What lies behind the place is put aside, as the clipboard is written over it.
  MMWaveObject& wave = WorkOeffnen();
  wave.PlayStart = InBytes(stelle);
  wave.PlayEnd = wave.DataSize();
  wave.SaveRange(PasteDatei);
  wave.Close();
  wave.PlayStart = 0;
  wave.Open();
  MMWaveObject& quelle = Wave2->Wave;
  quelle.SetFileName(CopyDatei);
  quelle.Open();
  wave.SetPosition(InBytes(stelle));
  Wave2Uebertragen();
  quelle.SetFileName(PasteDatei);
  quelle.Open();
  quelle.SetPosition(0);
  wave.SetPosition(InBytes(Ganz32(static_cast<double>(stelle) + PasteLaenge)));
  Wave2Uebertragen();
  wave.Close();
  quelle.Close();
  if (prog.DateiExistiert(PasteDatei)) prog.plattform.dateien.Kill(PasteDatei);
  NeuZeigen();
}

// ---- mute and fades ----

void frmWaveEditor::MuteWave() {
  if (NichtsGewaehlt()) return;
  PrepareUndo();
  prog.AppLog(L"MuteWave", L"muting wave");
  iUndoStep = kUndoBlock;
  MMWaveObject& wave = WorkOeffnen();
  wave.SetPosition(InBytes(MarkerAnfang));
  std::fill(BlockPuffer.begin(), BlockPuffer.end(), Frame{});
  InBloecken(MarkerEnde - MarkerAnfang, [&](std::int32_t frames) {
    wave.WriteData(BlockPuffer.data(), static_cast<std::size_t>(InBytes(frames)));
  });
  wave.Close();
  NeuZeigen();
}

void frmWaveEditor::FadeOutWave() {
  if (NichtsGewaehlt()) return;
  PrepareUndo();
  prog.AppLog(L"FadeOutWave", L"fading out wave");
  Blenden(false);
}

void frmWaveEditor::FadeInWave() {
  if (NichtsGewaehlt()) return;
  PrepareUndo();
  prog.AppLog(L"FadeInWave", L"fading in wave");
  Blenden(true);
}

void frmWaveEditor::Blenden(bool ein) {
  iUndoStep = kUndoBlock;
  MMWaveObject& wave = WorkOeffnen();
  wave.PlayStart = 0;
  wave.PlayEnd = wave.DataSize();
  wave.SetPosition(InBytes(MarkerAnfang));
  const double schritt = Quotient(1, MarkerEnde - MarkerAnfang);
  const Rampe rampe = ein ? Rampe{0, schritt} : Rampe{1, -schritt};
  std::int32_t basis = 0;
  InBloecken(MarkerEnde - MarkerAnfang, [&](std::int32_t frames) {
    BlockBlenden(rampe, frames, basis);
    basis += frames;
  });
  wave.Close();
  NeuZeigen();
}

void frmWaveEditor::BlockBlenden(const Rampe& rampe, std::int32_t frames, std::int32_t erster) {
  MMWaveObject& wave = Wave1->Wave;
  void* anfang = BlockPuffer.data();
  std::size_t platz = kBlockBytes;
  auto* const streifen = static_cast<Frame*>(
      std::align(kSpeicherZeile, sizeof(Frame) * kStreifenFrames, anfang, platz));
  for (std::int32_t j = 0; j < frames; j += kStreifenFrames) {
    const std::int32_t anzahl = std::min(kStreifenFrames, frames - j);
    const std::int32_t stelle = wave.Position();
    const std::size_t bytes = wave.ReadData(streifen, static_cast<std::size_t>(InBytes(anzahl)));
    rampe.Anwenden(streifen, static_cast<std::size_t>(anzahl), erster + j);
    const std::int32_t ende = wave.Position();
    wave.SetPosition(stelle);
    wave.WriteData(streifen, bytes);
    wave.SetPosition(ende);
  }
}

// ---- normalize ----

void frmWaveEditor::NormalizeWave() {
  const Text laufwerk = Links(SourceFile->Wave.FileName(), kWurzel);
  if (PlatzFehlt(laufwerk, InBytes(SourceFile->Wave.DataSize()))) return;
  Ausfuehren([this] {
    MarkerEnde = SourceFile->Wave.DataSize();
    MarkerAnfang = 0;
    PrepareUndo();
    prog.AppLog(L"NormalizeWave", L"normalizing wave");
    iUndoStep = kUndoBlock;
    tmrNormalize.Enabled = true;
    const auto fortschritt = [this](int phase, int prozent) {
      NormalizePhase = phase;
      NormalizeProzent = prozent;
      prog.plattform.schleife.DoEvents();  // so that the timer shows them
    };
    prog.plattform.mmtools.NormalizeFile(WorkDatei, fortschritt, kVollePegel);
    tmrNormalize.Enabled = false;
    NeuZeigen();
  });
}

void frmWaveEditor::tmrNormalize_Timer() {
  lblStatus.Caption =
      LoadResString(NormalizePhase == 0 ? 21607 : 21614) + ZahlText(NormalizeProzent) + L"%";
}

// ---- undo ----

void frmWaveEditor::UndoWave() {
  if (Spielt) return;
  const auto gesagt = [this](int text) { prog.MsgBoxen(LoadResString(text), kHinweis); };
  if (!prog.Undo) return gesagt(21000);
  if (prog.plattform.dateien.FileLen(prog.WaveEditorDatei) / kMB > prog.UndoMB) {
    return gesagt(21001);
  }
  if (!UndoVorhanden) return gesagt(21002);
  Ausfuehren([this] {
    SourceFile->Wave.Close();
    lblStatus.Caption = LoadResString(21602);
    ImUndo = true;
    prog.AppLog(L"UndoWave", L"iUndoStep = " + UndoName(iUndoStep));
    if (iUndoStep == kUndoPaste) {
      // Nothing is cut out while an undo is at work: what was pasted stays.
      MarkerAnfang = UndoStart;
      MarkerEnde = PasteLaenge;
      CutWave();
    } else if (iUndoStep == kUndoCut) {
      NurCursor = true;
      CursorPos = UndoStart;
      PasteWave();
    } else if (iUndoStep == kUndoBlock) {
      UndoBlock();
    }
    NeuZeigen();
    UndoVorhanden = false;
    ImUndo = false;
  });
}

void frmWaveEditor::UndoBlock() {
  WorkOeffnen().SetPosition(InBytes(UndoStart));
  MMWaveObject& quelle = Wave2->Wave;
  quelle.SetFileName(UndoDatei);
  quelle.Open();
  quelle.PlayStart = 0;
  quelle.PlayEnd = quelle.DataSize();
  Wave2Uebertragen();
  Wave1->Wave.Close();
  quelle.Close();
}

// ---- buttons ----

void frmWaveEditor::imgCopy_MouseUp() {
  if (Spielt) return;
  KnopfBild(imgCopy);
  InAblage([this] { CopyWave(); });
}

void frmWaveEditor::imgCut_MouseUp() {
  if (Spielt) return;
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
  if (Spielt) return;
  KnopfBild(imgPaste);
  Ausfuehren([this] { PasteWave(); });
}

void frmWaveEditor::imgMute_MouseUp() {
  if (Spielt) return;
  KnopfBild(imgMute);
  Ausfuehren([this] { MuteWave(); });
}

void frmWaveEditor::imgFadeIn_MouseUp() {
  if (Spielt) return;
  KnopfBild(imgFadeIn);
  Ausfuehren([this] { FadeInWave(); });
}

void frmWaveEditor::imgFadeOut_MouseUp() {
  if (Spielt) return;
  KnopfBild(imgFadeOut);
  Ausfuehren([this] { FadeOutWave(); });
}

void frmWaveEditor::imgNormalize_MouseUp() {
  if (Spielt) {
    PlayWave(false);
    prog.MsgBoxen(LoadResString(21008), kHinweis);
    return;
  }
  KnopfBild(imgNormalize);
  NormalizeWave();
}

}  // namespace vantora
