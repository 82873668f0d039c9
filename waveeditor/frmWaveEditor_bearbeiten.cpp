#include "waveeditor/frmWaveEditor.h"

namespace vantora {

bool frmWaveEditor::PrepareUndo() {
  return false;
}
bool frmWaveEditor::CopyWave() {
  return false;
}
void frmWaveEditor::CutWave() {}
void frmWaveEditor::PasteWave() {}
void frmWaveEditor::MuteWave() {}
void frmWaveEditor::FadeInWave() {}
void frmWaveEditor::FadeOutWave() {}
void frmWaveEditor::NormalizeWave() {}
void frmWaveEditor::UndoWave() {}
void frmWaveEditor::imgCopy_MouseUp() {}
void frmWaveEditor::imgCut_MouseUp() {}
void frmWaveEditor::imgPaste_MouseUp() {}
void frmWaveEditor::imgMute_MouseUp() {}
void frmWaveEditor::imgFadeIn_MouseUp() {}
void frmWaveEditor::imgFadeOut_MouseUp() {}
void frmWaveEditor::imgNormalize_MouseUp() {}
void frmWaveEditor::tmrNormalize_Timer() {}

}  // namespace vantora
