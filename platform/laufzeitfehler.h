// The run-time error of the program: a number that the product tests for, and a text for the user.
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
  kFehlerAbbruch = 32755,  // the user has cancelled a dialog whose caller takes that as an error
};

class Laufzeitfehler : public std::runtime_error {
 public:
  Laufzeitfehler(int nummer, Text text, Text grund = {})
      : std::runtime_error("run-time error " + std::to_string(nummer)),
        Nummer(nummer),
        Beschreibung(std::move(text)),
        Grund(std::move(grund)) {}

  int Nummer;         // one of Fehlernummer
  Text Beschreibung;  // one sentence, shown as it stands
  Text Grund;         // in the words of a library, for the log alone; may be blank
};

// Thrown where the program ends on the spot. It is no error and no std::exception, so that nothing
// that handles errors can hold it up; only the event loop and the entry catch it.
struct ProgrammEnde {};

}  // namespace vantora
