#include "waveeditor/frmWaveEditor.h"

namespace vantora {

void frmWaveEditor::Einrechnen2(const Text& /*datei*/) {}
void frmWaveEditor::Trigger_OnStop() {}
void frmWaveEditor::Trigger_OnError() {}
void frmWaveEditor::CloseMe() {}
void frmWaveEditor::Einrechnen() {}
void frmWaveEditor::EffektWerteMerken() {}
void frmWaveEditor::EffektWerteLaden() {}

}  // namespace vantora
