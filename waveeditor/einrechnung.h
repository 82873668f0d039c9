// Effects into the file, for the file that is open and for each file of a batch. The sound goes
// through the chain into a temporary file, and only when that is whole does it take the place of
// the source.
#pragma once

#include "waveeditor/editor_fenster.h"
#include "waveeditor/effekt_kette.h"

#include "platform/form.h"

namespace vantora {

struct Programm;

class Einrechnung {
 public:
  // `knopf` is the button that applies the effects.
  Einrechnung(Programm& programm, EffektKette& kette, PictureButton& knopf, EditorFenster& fenster);

  // Begins to write the open file; the window is locked until the trigger has come to the end.
  void Einrechnen();
  void StapelBeginnen() { BatchLaeuft_ = true; }  // the editor works for a batch from now on
  void StapelDatei();  // the whole of the work on WorkDatei; events run meanwhile

  void Trigger_OnStop();
  void Trigger_OnError();
  void Aufraeumen();  // the temporary files go

  bool EinrechnenLaeuft() const { return EinrechnenLaeuft_; }
  bool BatchLaeuft() const { return BatchLaeuft_; }
  // Where the chain is to end.
  EffektKette::Ende Ende() const;

 private:
  void Abschliessen();
  void ErgebnisUebernehmen();

  Programm& prog;
  EffektKette& kette_;
  PictureButton& knopf_;
  EditorFenster& fenster_;
  bool EinrechnenLaeuft_ = false, BatchLaeuft_ = false;
  bool TriggerSteht = false;  // a render has failed
  MMWaveHelperX WaveHelper;
};

}  // namespace vantora
