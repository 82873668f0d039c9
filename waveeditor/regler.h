// The sliders of the effects, each with the box beside it. When a slider is moved, its box shows
// the value and the value takes effect. A number that is typed into the box moves the slider.
#pragma once

#include "platform/form.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace vantora {

// These functions set a control and run its handler if the value changes, as when the user sets the
// control. A slider takes the nearest whole number within its range.
void Setzen(Slider& schieber, double wert);
void Setzen(CheckBox& kasten, int wert);

struct Regler {
  Slider* Schieber;
  TextBox* Feld;  // may be missing
  int Von, Bis, Anfang;
  std::function<void(int wert)> Wirkung;
  std::function<Text(int wert)> Anzeige = {};  // text in the box; missing: the value itself
  // Takes the typed number after Return, or when the focus leaves the box. Missing: the number is
  // the value of the slider.
  std::function<void(bool mitReturn)> Eingabe = {};
};

class ReglerBrett {
 public:
  ReglerBrett() = default;
  ReglerBrett(const ReglerBrett&) = delete;
  ReglerBrett& operator=(const ReglerBrett&) = delete;

  void Hinzufuegen(Regler regler);  // the handlers of its controls use this object
  void AlleAnwenden();              // shows all values and lets them take effect

 private:
  struct Platz {
    Regler R;
    Text Vorher;  // text of the box when it got the focus, or shown since then
  };
  void Geaendert(Platz& platz);
  static void FeldZeigen(Platz& platz);
  static void FeldUebernehmen(Platz& platz, bool mitReturn);

  std::vector<Platz> plaetze_;
};

}  // namespace vantora
