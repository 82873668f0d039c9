// Named sets of effect settings. Those of equalizer, volume, restoration and flanger lie in the
// settings store, a line of text each: the name and then the values, between semicolons. A kind has
// ten places. Knows no controls: the values are numbers, in the order of the kind.
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

  // The presets that the program brings, at the places that are free. `text` gives the text of a
  // number.
  void Vorbelegen(const std::function<Text(int nummer)>& text);

  // Reads a kind and returns its names. From then on it is the kind that the others work on. A hall
  // has none here.
  std::vector<Text> Lesen(int art);
  // The parts of a preset, the name first. Error 9 for a place that is not there.
  std::vector<Text> Teile(int platz);
  bool Moeglich() { return Vorrat() != nullptr; }  // the kind has presets here
  // Error 9, and nothing is kept, for a place that is not there.
  void Merken(int platz, const Text& name, const std::vector<int>& werte);
  // Frees a place of the store. Others keep their places there, so the list closes gaps that the
  // store keeps.
  void Loeschen(int platz);

  const Feld* Inhalt() { return Vorrat(); }  // the kind in memory; nothing for the hall

 private:
  Feld* Vorrat();

  Plattform& plattform_;
  int art_ = kEqualizer;
  Text PresetPrefix;  // of the kind's names in the store
  Feld PresetsEqu, PresetsVol, PresetsRes, PresetsFla;
};

}  // namespace vantora
