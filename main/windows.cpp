#include "main/windows.h"

#include "app/frmAbout.h"
#include "app/frmKomponenten.h"
#include "app/frmMBox.h"
#include "app/frmStartUp.h"
#include "app/programm.h"
#include "catalog/frmHauptForm.h"
#include "catalog/frmLiedAusKatalog.h"
#include "catalog/mp3_ereignisse.h"
#include "cdinput/frmCDPlayer.h"
#include "cdinput/frmDatenbank.h"
#include "cdinput/grab_ereignisse.h"
#include "cdwriting/brenn_ereignisse.h"
#include "cdwriting/frmCDBrennen.h"
#include "cdwriting/frmSchreibFortschritt.h"
#include "cover/frmPrint.h"
#include "cover/frmPrintStart.h"
#include "dialogs/frmDrucken.h"
#include "dialogs/frmExtrasMenue.h"
#include "dialogs/frmFarbe.h"
#include "dialogs/frmLoadSave.h"
#include "dialogs/frmNeuerInterpret.h"
#include "dialogs/frmSchrift.h"
#include "dialogs/frmStartAssistent.h"
#include "medley/frmBeatCounter.h"
#include "medley/frmMedley.h"
#include "mixer/frmMixer.h"
#include "recorder/frmAufnehmen.h"
#include "waveeditor/frmSpektrum.h"
#include "waveeditor/frmWaveEditor.h"

namespace vantora {

namespace {

template <typename... W>
void Give(Fenster<W>&... places) {
  (places.MacherSetzen([](Programm& program) -> std::shared_ptr<VtrFenster> {
    return std::make_shared<W>(program);
  }),
   ...);
}

std::shared_ptr<VtrFenster> MakeKomponenten(Programm& program) {
  return std::make_shared<frmKomponenten>(
      program, EreignisEmpfaenger{.Brennen = std::make_unique<BrennEreignisse>(program),
                                  .Grab = std::make_unique<GrabEreignisse>(program),
                                  .Mp3 = std::make_unique<Mp3Ereignisse>(program)});
}

}  // namespace

void AllWindows(Programm& p) {
  Give(p.frmStartUp, p.frmHauptForm, p.frmMBox, p.frmAbout, p.frmNeuerInterpret,
       p.frmLiedAusKatalog, p.frmCDBrennen, p.frmSchreibFortschritt, p.frmLoadSave,
       p.frmExtrasMenue, p.frmSchrift, p.frmFarbe, p.frmDrucken, p.frmStartAssistent, p.frmMixer,
       p.frmCDPlayer, p.frmDatenbank, p.frmWaveEditor, p.frmSpektrum, p.frmAufnehmen,
       p.frmPrintStart, p.frmPrint, p.frmMedley, p.frmBeatCounter);
  p.frmKomponenten.MacherSetzen(MakeKomponenten);
}

}  // namespace vantora
