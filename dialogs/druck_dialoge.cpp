// One call each for the dialogs for fonts, colours and printing, and the messages for their errors.

#include "app/programm.h"
#include "app/werte/zeichen.h"
#include "dialogs/frmDrucken.h"
#include "dialogs/frmFarbe.h"
#include "dialogs/frmSchrift.h"

namespace vantora {

bool Programm::SchriftHolen(Schriftart& schrift, int /*flags*/) {
  const std::shared_ptr<vantora::frmSchrift> fenster = frmSchrift.Laden();
  fenster->Beginnen(schrift);
  ZeigeModal(fenster);
  if (!fenster->Gewaehlt) return false;
  schrift = fenster->Wahl();
  return true;
}

bool Programm::FarbeHolen(const vantora::Text& titel, Color& farbe, int /*flags*/) {
  const std::shared_ptr<vantora::frmFarbe> fenster = frmFarbe.Laden();
  fenster->Beginnen(titel, farbe);
  ZeigeModal(fenster);
  if (!fenster->Gewaehlt) return false;
  farbe = fenster->Wahl();
  return true;
}

void Programm::DruckerHolen(int /*flags*/) {
  const std::shared_ptr<vantora::frmDrucken> fenster = frmDrucken.Laden();
  ZeigeModal(fenster);
  if (!fenster->Gewaehlt) throw Laufzeitfehler(kFehlerAbbruch, Text(30158));
}

// An error of the printer has its own message; the message for a file contains the words of the
// error.
void Programm::DruckFehlerMelden(const Laufzeitfehler& fehler) {
  if (fehler.Nummer == kFehlerAbbruch) return;
  FehlerVermerken(fehler.Grund.empty() ? fehler.Beschreibung : fehler.Grund);
  MsgBoxen(fehler.Nummer == kFehlerDrucker ? Text(30156) : Text(30157) + fehler.Beschreibung + L".",
           kHinweis);
}

void Programm::BildFehlerMelden(const vantora::Text& datei, const Laufzeitfehler& fehler) {
  MsgBoxen(datei + kZeilenEnde + fehler.Beschreibung + L".", kHinweis);
}

}  // namespace vantora
