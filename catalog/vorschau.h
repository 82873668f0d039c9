// The preview: plays one wave file at a time, and shows its level. It needs a sound card.
#pragma once

#include "platform/form.h"
#include "platform/mmtools.h"

#include <cstdint>
#include <memory>

namespace vantora {

struct Programm;

class Vorschau {
 public:
  // `wave` measures the files.
  Vorschau(Programm& programm, MMWave& wave, LevelMeter& pegel);

  // Plays a wave file; an empty text stops. When the mixer would make the file inaudible, the user
  // is asked whether to change that. Events run before the file is heard.
  void PlayWaveNormal(const Text& datei);
  // Plays a wave file; from its middle on, if the whole file lasts at least `sekunden`.
  void PlayWaveMitte(const Text& datei, std::int32_t sekunden);
  void Vorspielen(const Text& datei);  // the play button
  void Stop();                         // the stop button
  void Ausklingen();                   // stops a preview, and waits until it is silent
  void PegelErneuern();                // switches the meter on again; events run meanwhile

  // The flag that the main window and the medley window share: a preview has been started.
  bool Spielt() const { return Abspielen; }
  void SpieltSetzen(bool spielt) { Abspielen = spielt; }
  bool SpielerLaeuft() const { return WavePlayer->Playing(); }  // asks the player, not the flag

  bool Soundkarte() const { return Soundkarte_; }  // at least one wave output device was found
  void SoundkarteSetzen(bool vorhanden) { Soundkarte_ = vorhanden; }

 private:
  void MMConnectorX1();  // connects the player with the level meter
  void MixerFragen();

  Programm& prog;
  MMWave& MMWaveFileX1;
  LevelMeter& Level;
  std::unique_ptr<MMWavePlayerX> WavePlayer;
  bool Abspielen = false;
  bool Soundkarte_ = false;
};

}  // namespace vantora
