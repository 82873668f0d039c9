// The edits of the wave editor, with its clipboard and its one step of undo. The edits change the
// file on the disk at once, in place. Each change is one edit of platform/edits.h, so that a killed
// program cannot leave it half done.
//
// Places and lengths are frames of 4 bytes, whatever the header of the file says.
#pragma once

#include "waveeditor/auswahl.h"
#include "waveeditor/editor_fenster.h"

#include "platform/edits.h"
#include "platform/mmchain.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace vantora {

struct Programm;

class Bearbeitung {
 public:
  // `quelle` is the window's own file, which is closed while an edit changes it.
  Bearbeitung(Programm& programm, Auswahl& auswahl, MMWaveFileX& quelle, EditorFenster& fenster);

  void Beginnen();     // the editor has been opened: there is nothing to paste or to undo
  bool Vorbereiten();  // finishes an edit that an error has interrupted; true when there was one
  void Beenden();      // deletes the clipboard and the undo store

  // Each edit shows a message when it refuses its work. Errors of the file are raised.
  bool PrepareUndo();
  bool CopyWave();
  void CutWave();
  void PasteWave();
  void MuteWave();
  void FadeInWave();
  void FadeOutWave();
  bool PlatzZumNormalisieren();
  void NormalizeWave();  // the whole file
  bool UndoMoeglich();
  void UndoWave();
  void UndoVerwerfen() { UndoVorhanden_ = false; }
  void NachFehler();  // has to be called after an error of any edit

  bool UndoVorhanden() const { return UndoVorhanden_; }
  bool ImUndo() const { return ImUndo_; }
  const Text& CopyDatei() const { return CopyDatei_; }
  int NormalizePhase() const { return NormalizePhase_; }  // 0: looks for the peak, 1: writes
  int NormalizeProzent() const { return NormalizeProzent_; }

 private:
  bool NichtsGewaehlt();
  bool PlatzFehlt(const Text& ort, double bytes);
  Text FreierName(const wchar_t* name) const;  // a name in the temporary directory
  WaveEdit Vorhaben();                         // an edit without steps of the file as it is now
  void Aendern(const std::function<void()>& arbeit);
  void Ausfuehren(WaveEdit vorhaben);
  void Blenden(double start, double richtung);
  void UndoBlock();

  Programm& prog;
  Auswahl& auswahl_;
  MMWaveFileX& SourceFile;
  EditorFenster& fenster_;
  std::unique_ptr<MMWaveFileX> Wave1, Wave2;  // the edited file, and a file to copy from

  Text UndoDatei, CopyDatei_;
  bool UndoVorhanden_ = false;
  std::int32_t UndoStart = 0;
  std::int16_t iUndoStep = 0;    // 1 cut, 2 block process, 3 paste
  std::int32_t PasteLaenge = 0;  // frames in the clipboard at the last paste
  bool ImUndo_ = false;          // an undo is at work: its edits must not store an undo themselves
  int NormalizePhase_ = 0, NormalizeProzent_ = 0;
};

}  // namespace vantora
