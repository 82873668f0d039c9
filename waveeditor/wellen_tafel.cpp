#include "waveeditor/wellen_tafel.h"

#include "app/werte/zahlen.h"

namespace vantora {

void WellenTafel::GedruecktZeigen(Steuerung knopf) {
  imgSteuerung(knopf).Picture = L"WAVESTEUERUNG_" + ZahlText(knopf);
}

}  // namespace vantora
