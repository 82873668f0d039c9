// The sound chain of the wave editor. It leads from the file through converter, peak detector, gate
// and restoration, equalizer, loudness, hall, flanger and volume to the loudspeaker, or into
// another file. An effect that is off is no part of the path. The chain owns its components, and
// only the chain connects them.
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

  // ---- start and end ----
  void Starten();  // starts the audio library and switches all effects off
  void SetEqualizer();
  void SetLoudness();
  void Beenden();  // ends the audio library

  // ---- connections ----
  // Wires the effects that are on, and no others, before that end. The loudspeaker must not run
  // meanwhile.
  void Verbinden(Ende ende);
  // Switches the component on or off. The next Verbinden brings it into the path or takes it out.
  void Schalten(Stufe stufe, bool an);
  // Makes effects, gate and filters forget earlier sound, for example its echoes.
  void Auffrischen();

  // ---- settings: each effect's component takes its own ----
  MMEqualizerX& Equalizer() { return *Eq_; }
  MMReverbX& Reverb() { return *Reverb_; }
  MMFlangerX& Flanger() { return *Flanger_; }
  MMVolumeX& mmVolume() { return *mmVolume_; }
  Gate& Tor() { return gate_; }
  Restauration& Filter() { return restauration_; }

  // ---- the ends of the chain ----
  MMWaveFileX& SourceFile() { return *SourceFile_; }
  const MMWaveFileX& SourceFile() const { return *SourceFile_; }
  MMWaveOutX& Out() { return *Out_; }
  MMTriggerX& Trigger() { return *Trigger_; }
  MMWaveFileX& DestFile() { return *DestFile_; }  // the trigger writes it
  std::int32_t Laenge() const;                    // of the source, in frames; 0 when it is closed

  // ---- events ----
  std::function<void(MMData& data)> OnPuffer;  // each buffer between peak detector and equalizer
  std::function<void(int links, int rechts)> OnPegel;  // peaks that are heard, 0 to 32767
  // Passes a buffer of OnPuffer through gate and filters.
  void PufferFiltern(MMData& data);

  // ---- the other components, so that tests can follow the path ----
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
  // The buffer in work, and room for a second one. No buffer is allocated while sound runs.
  std::array<std::int16_t, kBufferBytes / sizeof(std::int16_t)> PufferA_{}, PufferB_{};
  PcmData Folgt_{};  // the buffer after that in hand
};

}  // namespace vantora
