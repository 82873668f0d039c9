# The options are confirmed.
home home
screen 1024 768
clock 2026-11-24 10:00
setting Show_Start_Assistant 0
setting Show_TAO_Message 0
start
press frmHauptForm.imgExtras
press frmExtrasMenue.optCDGroesse74
press frmExtrasMenue.chk3DAnalyse
type frmExtrasMenue.txtUndoMB 120
writefile ${DISK} text ${FAULT}
press frmExtrasMenue.imgOK
answer-all 7
