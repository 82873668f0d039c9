#include "medley/ueberblendung.h"

#include "app/programm.h"

namespace vantora {

Ueberblendung::Ueberblendung(Programm& programm, const CheckBox& haken)
    : prog(programm), chkPitch(haken) {}

Ueberblendung::~Ueberblendung() = default;

void Ueberblendung::UeberblendungBerechnen(int /*Index1*/, int /*Index2*/) {
  MedleyFehler = chkPitch.Value() > 1;
}

void Ueberblendung::UeberblendungAusfuehren(int Index1, int Index2) {
  MedleyFehler = false;
  UeberblendungBerechnen(Index1, Index2);
}

void Ueberblendung::LaufBeginnen() {}

bool Ueberblendung::KatalogMarkieren() {
  return !MedleyFehler && prog.Medley.size() > 1;
}

Text Ueberblendung::VorschauSchreiben() {
  return {};
}

void Ueberblendung::TempDateienLoeschen() {}

void Ueberblendung::Trigger_OnBufferLoad() {}

void Ueberblendung::Trigger_OnStop() {
  MixLaeuft = false;
}

}  // namespace vantora
