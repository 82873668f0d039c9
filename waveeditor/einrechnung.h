// Writes the effects into the file that is open, or into a file of a batch. The sound goes through
// the chain into a temporary file. When the temporary file is complete, it takes the place of the
// source.
#pragma once

#include "waveeditor/editor_fenster.h"
#include "waveeditor/effekt_kette.h"

#include "platform/files.h"
#include "platform/form.h"

namespace vantora {

struct Programm;

class Einrechnung {
 public:
  // `knopf` is the button that applies the effects.
  Einrechnung(Programm& programm, EffektKette& kette, PictureButton& knopf, EditorFenster& fenster);

  // Begins to render the open file. The window is locked until the trigger has reached the end.
  void Einrechnen();
  void StapelBeginnen() { BatchLaeuft_ = true; }  // the editor works for a batch from now on
  void StapelDatei();  // renders WorkDatei; returns when it is done, and lets events run meanwhile

  void Trigger_OnStop();
  void Trigger_OnError();
  void Trigger_OnFailure(const Laufzeitfehler& fehler);
  void Aufraeumen();  // deletes the temporary files

  bool EinrechnenLaeuft() const { return EinrechnenLaeuft_; }
  bool BatchLaeuft() const { return BatchLaeuft_; }
  // Returns the end that the chain needs now.
  EffektKette::Ende Ende() const;

 private:
  void QuelleMerken(const Text& datei);
  void Abschliessen();
  void ErgebnisUebernehmen();

  Programm& prog;
  EffektKette& kette_;
  PictureButton& knopf_;
  EditorFenster& fenster_;
  bool EinrechnenLaeuft_ = false, BatchLaeuft_ = false;
  bool TriggerSteht = false;  // a render has failed
  DateiStand Quelle_;         // of the file, when its render began
  MMWaveHelperX WaveHelper;
};

}  // namespace vantora
