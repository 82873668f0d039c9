# A preset is stored.
home home
screen 1024 768
clock 2026-11-24 10:00
setting Show_Start_Assistant 0
setting Show_TAO_Message 0
makewave C:\m\uno.wav 3 300
start
press frmHauptForm.imgLiedImport
choose C:\m\uno.wav
key frmNeuerInterpret Return
expect frmHauptForm.lvwKatalog.Count == 1
press frmHauptForm.imgWaveEdit
press frmWaveEditor.imgEQPresets
type frmWaveEditor.txtPresName "Mi sonido"
writefile ${DISK} text ${FAULT}
key frmWaveEditor Return
answer-all 7
press frmWaveEditor.imgZurück
answer-all 7
