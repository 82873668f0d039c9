// Playing, pausing, looping and winding. Sound is played from the selection through the chain; the
// window shows the place, and its buttons show what goes on.
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
  // What it works with. `Uhr` calls Anzeigen while something plays.
  struct Teile {
    EffektKette& Kette;
    vantora::Auswahl& Auswahl;
    vantora::Marker& Marker;
    Prozessorlast& Last;
    WellenTafel& Tafel;
    Timer& Uhr;
  };
  Transport(Programm& programm, Teile teile, EditorFenster& fenster);

  // Starts the selection, or ends what plays. When it plays already it begins anew, with what is
  // selected now. Events run meanwhile; a call from one of them has its turn afterwards.
  void PlayWave(bool an);
  // Shows the place that is heard, and ends the playing at the end of its range.
  void Anzeigen();
  // Wires the chain. Sound that plays goes on from where it was; a loop begins anew.
  void Verbinden(EffektKette::Ende ende);

  // ---- the buttons ----
  void SchleifeAus() { LoopAktiv = false; }
  void Wiedergabe();  // goes on after a pause
  void Stop();
  void PauseUmschalten();
  void Schleife();
  void AnsEnde(bool hinten);  // the cursor at the end or the beginning of the sound
  void Spulen(bool vor);      // until it is ended; not in a loop
  void SpulenBeenden();       // the sound goes on there if it played
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
  bool DanachSpielen = false;  // to play has been asked for meanwhile
  int Verbindungen = 0;        // how often the chain has been wired
  bool SpulAktiv_ = false;
  std::int32_t SpulPos = 0;      // frames
  bool SpieltVorSpulen = false;  // sound was playing when the winding began
};

}  // namespace vantora
