#include "waveeditor/frmWaveEditor.h"

namespace vantora {

void frmWaveEditor::Spektrum3D() {}
void frmWaveEditor::tmr3D_Timer() {}
void frmWaveEditor::pic3D_Paint() {}
void frmWaveEditor::pic3D_DblClick() {}

}  // namespace vantora
