// The sliders of the effects, each with the box beside it. A slider that is moved shows its value
// in the box and lets it take effect; a number that is typed moves the slider.
#pragma once

#include "platform/form.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace vantora {

// Set a control as a hand would: its handler runs when the value changes. A slider takes the
// nearest whole number within its range.
void Setzen(Slider& schieber, double wert);
void Setzen(CheckBox& kasten, int wert);

struct Regler {
  Slider* Schieber;
  TextBox* Feld;  // may be missing
  int Von, Bis, Anfang;
  std::function<void(int wert)> Wirkung;
  std::function<Text(int wert)> Anzeige = {};  // in the box; missing: the value itself
  // Takes what was typed, with Return or by leaving the box; missing: it is the slider's value.
  std::function<void(bool mitReturn)> Eingabe = {};
};

class ReglerBrett {
 public:
  ReglerBrett() = default;
  ReglerBrett(const ReglerBrett&) = delete;
  ReglerBrett& operator=(const ReglerBrett&) = delete;

  void Hinzufuegen(Regler regler);  // its handlers run for as long as this lives
  void AlleAnwenden();              // as if each had just been moved to where it stands

 private:
  struct Platz {
    Regler R;
    Text Vorher;  // in the box when it got the focus, or shown since
  };
  void Geaendert(Platz& platz);
  static void FeldZeigen(Platz& platz);
  static void FeldUebernehmen(Platz& platz, bool mitReturn);

  std::vector<Platz> plaetze_;
};

}  // namespace vantora
