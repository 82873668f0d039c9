#include "waveeditor/wellen_tafel.h"

#include "app/fenster.h"
#include "app/werte/zahlen.h"

namespace vantora {

void WellenTafel::GedruecktZeigen(Steuerung knopf) {
  imgSteuerung(knopf).Picture = L"WAVESTEUERUNG_" + ZahlText(knopf);
  imgSteuerung(knopf).State = Lamp::On;
}

void WellenTafel::GeloestZeigen(PictureButton& knopf) {
  KnopfBild(knopf);
  knopf.State = Lamp::Off;
}

}  // namespace vantora
