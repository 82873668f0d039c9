// The state of the wave editor that outlives its window: the file to open next, the range that the
// spectrum shows, and the settings of the effects when the window was last closed.
#pragma once

#include "app/zustand/eq_baender.h"

#include "platform/text.h"

#include <array>
#include <cstdint>

namespace vantora {

// The settings of all effects, as a batch applies them. Values are those of the sliders.
struct EffektWerte {
  bool Gueltig = false;  // the editor has been closed at least once
  bool EQAktiv = false, DenoiserAktiv = false, DecrackleAktiv = false, DeclickAktiv = false;
  bool LoudnessAktiv = false, VolumeAktiv = false, GaterAktiv = false;
  bool FlangerAktiv = false, HallAktiv = false;
  std::int16_t DenoiserWert = 0, DecrackleWert = 0, DeclickWert = 0;
  std::array<std::int16_t, kEqBaender> EQBand{};  // dB
  std::int16_t Lautstaerke = 0;                   // 16384 leaves the volume unchanged
  std::int32_t GaterSchwelle = 0;                 // sample units
  std::int16_t GaterZeit = 0;                     // ms
  std::int16_t FlangerMix = 0, FlangerFeedback = 0, FlangerTiefe = 0, FlangerRate = 0;
  std::int16_t HallGain = 0, HallFeedback = 0;
  std::int16_t HallPreset = 0;  // line of the list of rooms, -1 for none
};

struct EditorZustand {
  Text WaveEditorDatei;      // set before the editor is opened
  bool EditorBatch = false;  // the editor is being opened for a batch
  EffektWerte EffektEinstellung;

  // The range whose spectrum was drawn last; the window of the whole screen shows it again.
  Text SpektrumDatei;
  std::int32_t SpektrumStart = 0, SpektrumLaenge = 0;  // frames
  bool SpektrumBereit = false;                         // one has been drawn in this run
};

}  // namespace vantora
