// Named sets of effect settings. The presets of equalizer, volume, restoration and flanger lie in
// the settings store. Each preset is a line of text: the name and then the values, separated by
// semicolons. A kind has ten places. This class knows no controls. The values are numbers in the
// order of the kind.
#pragma once

#include "platform/plattform.h"
#include "platform/text.h"

#include <array>
#include <functional>
#include <vector>

namespace vantora {

class PresetVorrat {
 public:
  // The kinds carry the numbers of the panels whose settings they hold.
  enum Art : int { kEqualizer = 0, kLautstaerke = 1, kHall = 2, kRestauration = 3, kFlanger = 4 };
  static constexpr int kPlaetze = 10;
  using Feld = std::array<Text, kPlaetze>;

  explicit PresetVorrat(Plattform& plattform) : plattform_(plattform) {}

  // Puts the program's own presets at the places that are free. `text` returns the text with a
  // number.
  void Vorbelegen(const std::function<Text(int nummer)>& text);

  // Reads a kind and returns its names. The methods below work on the kind that was read last. The
  // hall has no presets here.
  std::vector<Text> Lesen(int art);
  // The parts of a preset, the name first. Raises error 9 for a place that is not there.
  std::vector<Text> Teile(int platz);
  bool Moeglich() { return Vorrat() != nullptr; }  // the kind has presets here
  // Stores a preset. Raises error 9 and stores nothing for a place that is not there.
  void Merken(int platz, const Text& name, const std::vector<int>& werte);
  // Frees a place of the store. The other presets keep their places there; only the list, when it
  // is read again, closes the gap.
  void Loeschen(int platz);

  const Feld* Inhalt() { return Vorrat(); }  // the kind in memory; nothing for the hall

 private:
  Feld* Vorrat();

  Plattform& plattform_;
  int art_ = kEqualizer;
  Text PresetPrefix;  // the beginning of the names of the kind in the store
  Feld PresetsEqu, PresetsVol, PresetsRes, PresetsFla;
};

}  // namespace vantora
