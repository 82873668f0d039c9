// The run-time error of the program: a number for the code and a text for the user.
#pragma once

#include "platform/text.h"

#include <stdexcept>
#include <string>

namespace vantora {

enum Fehlernummer : int {
  kFehlerUngueltigerAufruf = 5,
  kFehlerUeberlauf = 6,
  kFehlerSpeicher = 7,
  kFehlerIndex = 9,
  kFehlerDivision = 11,
  kFehlerDateiNummer = 52,
  kFehlerDateiFehlt = 53,
  kFehlerEinAusgabe = 57,
  kFehlerDateiExistiert = 58,
  kFehlerPlattenVoll = 61,
  kFehlerDateiEnde = 62,
  kFehlerZugriff = 70,
  kFehlerPfadZugriff = 75,
  kFehlerPfadFehlt = 76,
  kFehlerRessource = 326,
  kFehlerBild = 481,
  kFehlerDrucker = 482,
  kFehlerAbbruch = 32755,  // the user has cancelled a dialog whose caller expects an error
};

class Laufzeitfehler : public std::runtime_error {
 public:
  Laufzeitfehler(int nummer, Text text, Text grund = {})
      : std::runtime_error("run-time error " + std::to_string(nummer)),
        Nummer(nummer),
        Beschreibung(std::move(text)),
        Grund(std::move(grund)) {}

  int Nummer;         // one of Fehlernummer
  Text Beschreibung;  // one sentence, shown unchanged
  Text Grund;         // a library's own words, only for the log; may be blank
};

// Thrown to end the program at once. It is not a std::exception, so that no error handler catches
// it. Only the event loop and main catch it.
struct ProgrammEnde {};

}  // namespace vantora
