#include "dialogs/druck_dialoge.h"

#include "app/programm.h"
#include "dialogs/frmDrucken.h"
#include "dialogs/frmFarbe.h"
#include "dialogs/frmSchrift.h"

namespace vantora {

bool SchriftHolen(Programm& prog, Schriftart& schrift, int /*flags*/) {
  const std::shared_ptr<vantora::frmSchrift> fenster = prog.frmSchrift.Laden();
  fenster->Beginnen(schrift);
  prog.ZeigeModal(fenster);
  if (!fenster->Gewaehlt) return false;
  schrift = fenster->Wahl();
  return true;
}

bool FarbeHolen(Programm& prog, const Text& titel, Color& farbe, int /*flags*/) {
  const std::shared_ptr<vantora::frmFarbe> fenster = prog.frmFarbe.Laden();
  fenster->Beginnen(titel, farbe);
  prog.ZeigeModal(fenster);
  if (!fenster->Gewaehlt) return false;
  farbe = fenster->Wahl();
  return true;
}

void DruckerHolen(Programm& prog, int /*flags*/) {
  const std::shared_ptr<vantora::frmDrucken> fenster = prog.frmDrucken.Laden();
  prog.ZeigeModal(fenster);
  if (!fenster->Gewaehlt) throw Laufzeitfehler(kFehlerAbbruch, prog.Text(30158));
}

}  // namespace vantora
