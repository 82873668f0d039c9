// Plays the selected sound through the chain, with pause, loop and winding. The window shows the
// place that is heard, and the buttons show the state.
#pragma once

#include "waveeditor/auswahl.h"
#include "waveeditor/editor_fenster.h"
#include "waveeditor/effekt_kette.h"
#include "waveeditor/marker.h"
#include "waveeditor/prozessorlast.h"
#include "waveeditor/wellen_tafel.h"

#include <cstdint>

namespace vantora {

struct Programm;

class Transport {
 public:
  // The parts of the editor that the transport uses. `Uhr` has to call Anzeigen; `Uhr` runs while
  // sound plays.
  struct Teile {
    EffektKette& Kette;
    vantora::Auswahl& Auswahl;
    vantora::Marker& Marker;
    Prozessorlast& Last;
    WellenTafel& Tafel;
    Timer& Uhr;
  };
  Transport(Programm& programm, Teile teile, EditorFenster& fenster);

  // Starts to play the selection, or stops. When sound plays already, it begins anew with the
  // present selection. Events run meanwhile. If an event calls this function, that call is carried
  // out afterwards.
  void PlayWave(bool an);
  // Shows the place that is heard, and ends the playing at the end of its range.
  void Anzeigen();
  // Wires the chain. Playing sound goes on at the same place. A loop begins anew.
  void Verbinden(EffektKette::Ende ende);

  // ---- the buttons ----
  void SchleifeAus() { LoopAktiv = false; }
  void Wiedergabe();  // starts to play, or goes on after a pause
  void Stop();
  void PauseUmschalten();
  void Schleife();
  void AnsEnde(bool hinten);  // sets the cursor at the end or the beginning of the sound
  void Spulen(bool vor);      // returns when winding has been ended; does nothing in a loop
  void SpulenBeenden();       // sound that played before goes on at the new place
  void SpulenAbbrechen() { SpulAktiv_ = false; }  // the window closes

  bool Spielt() const { return Spielt_; }
  bool Pausiert() const { return Pausiert_; }
  bool SpulAktiv() const { return SpulAktiv_; }  // a wind button is held

 private:
  void Beginnen();
  void Anhalten();
  void SpielEnde();
  void SpieltNochPruefen();
  void BereichSetzen();
  void KnoepfeFreigeben();

  Programm& prog;
  Teile t_;
  EditorFenster& fenster_;

  bool Spielt_ = false, Pausiert_ = false, LoopAktiv = false;
  bool HaeltAn = false;        // the sound is being ended
  bool DanachSpielen = false;  // play was pressed while the sound was being ended
  int Verbindungen = 0;        // how often the chain has been wired
  bool SpulAktiv_ = false;
  std::int32_t SpulPos = 0;      // frames
  bool SpieltVorSpulen = false;  // sound was playing when the winding began
};

}  // namespace vantora
