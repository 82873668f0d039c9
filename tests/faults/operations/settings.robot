# The options are confirmed.
start
press frmHauptForm.imgExtras
press frmExtrasMenue.optCDGroesse74
press frmExtrasMenue.chk3DAnalyse
type frmExtrasMenue.txtUndoMB 120
writefile ${DISK} text ${FAULT}
press frmExtrasMenue.imgOK
answer-all 7
