#include "waveeditor/frmWaveEditor.h"

namespace vantora {

void frmWaveEditor::ReverbPresetsLaden() {}
void frmWaveEditor::InitPresets() {}
void frmWaveEditor::lstPresets_Click() {}
bool frmWaveEditor::txtPresName_KeyPress(int /*taste*/) {
  return false;
}
void frmWaveEditor::imgEddPres_MouseUp(int /*index*/) {}
void frmWaveEditor::imgOK_MouseUp() {}
void frmWaveEditor::comboPreset_Click() {}
void frmWaveEditor::PresetsVorbelegen() {}
void frmWaveEditor::PresetsEinrichten() {}
void frmWaveEditor::TextePresets() {}

}  // namespace vantora
