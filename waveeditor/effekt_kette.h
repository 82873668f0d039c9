// The sound chain of the wave editor: from the file through converter, peak detector, gate and
// restoration, equalizer, loudness, hall, flanger and volume to the loudspeaker, or into another
// file. An effect that is off is no part of the path. The chain owns its components; nothing else
// connects them.
#pragma once

#include "waveeditor/gate.h"
#include "waveeditor/restauration.h"

#include "platform/mmtools.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>

namespace vantora {

class EffektKette {
 public:
  enum Stufe { kEqualizer, kLoudness, kHall, kFlanger, kLautstaerke };  // in the order of the sound
  enum class Ende { Lautsprecher, Datei };

  EffektKette(MMTools& werkzeug, Audiolib& bibliothek);
  EffektKette(const EffektKette&) = delete;
  EffektKette& operator=(const EffektKette&) = delete;

  // ---- life ----
  void Starten();  // the library; all effects off, and without echoes of the past
  void SetEqualizer();
  void SetLoudness();
  void Beenden();  // the library

  // ---- connections ----
  // Wires the effects that are on, and nothing else, in front of that end. The loudspeaker pauses
  // or stands still meanwhile.
  void Verbinden(Ende ende);
  // On or off for the component; the path follows with the next Verbinden.
  void Schalten(Stufe stufe, bool an);
  // Effects, gate and filters begin anew, so that nothing that was heard before rings on.
  void Auffrischen();

  // ---- settings; those of an effect belong to its component ----
  MMEqualizerX& Equalizer() { return *Eq_; }
  MMReverbX& Reverb() { return *Reverb_; }
  MMFlangerX& Flanger() { return *Flanger_; }
  MMVolumeX& mmVolume() { return *mmVolume_; }
  Gate& Tor() { return gate_; }
  Restauration& Filter() { return restauration_; }

  // ---- the ends, and what is played or written ----
  MMWaveFileX& SourceFile() { return *SourceFile_; }
  const MMWaveFileX& SourceFile() const { return *SourceFile_; }
  MMWaveOutX& Out() { return *Out_; }
  MMTriggerX& Trigger() { return *Trigger_; }
  MMWaveFileX& DestFile() { return *DestFile_; }  // what the trigger writes
  std::int32_t Laenge() const;                    // frames of the source; 0 when it is closed

  // ---- events ----
  std::function<void(MMData& data)> OnPuffer;  // each buffer between peak detector and equalizer
  std::function<void(int links, int rechts)> OnPegel;  // peaks that are heard, 0 to 32767
  // Gate and filters over a buffer that OnPuffer has brought.
  void PufferFiltern(MMData& data);

  // ---- components without settings, for those who follow the path ----
  MMPCMConverterX& MMPCMConverterX1() { return *MMPCMConverterX1_; }
  MMPeakDetectX& Peak() { return *Peak_; }
  MMDSPInterfaceX& DSP() { return *DSP_; }
  MMEqualizerX& Loudness() { return *Loudness_; }

 private:
  struct Effekt {
    MMEffectX* Komponente;
    bool An = false;
  };

  // In the order of the sound.
  std::unique_ptr<MMWaveFileX> SourceFile_;
  std::unique_ptr<MMPCMConverterX> MMPCMConverterX1_;
  std::unique_ptr<MMPeakDetectX> Peak_;
  std::unique_ptr<MMDSPInterfaceX> DSP_;
  std::unique_ptr<MMEqualizerX> Eq_, Loudness_;
  std::unique_ptr<MMReverbX> Reverb_;
  std::unique_ptr<MMFlangerX> Flanger_;
  std::unique_ptr<MMVolumeX> mmVolume_;
  std::unique_ptr<MMWaveOutX> Out_;
  std::unique_ptr<MMConnectorX> MMConnectorX1;
  std::unique_ptr<MMTriggerX> Trigger_;
  std::unique_ptr<MMWaveFileX> DestFile_;

  std::array<Effekt, 5> effekte_;  // by Stufe
  Gate gate_;
  Audiolib& bibliothek_;
  Restauration restauration_;
  // What filters work on: a buffer, and as much room beside it.
  std::array<std::int16_t, kBufferBytes / sizeof(std::int16_t)> PufferA_{}, PufferB_{};
};

}  // namespace vantora
