# An effect goes into two files.
home home
screen 1024 768
clock 2026-11-24 10:00
setting Show_Start_Assistant 0
setting Show_TAO_Message 0
makewave C:\m\uno.wav 3 300
makewave C:\m\dos.wav 4 400
start
press frmHauptForm.imgLiedImport
choose C:\m\uno.wav C:\m\dos.wav
key frmNeuerInterpret Return
key frmNeuerInterpret Return
expect frmHauptForm.lvwKatalog.Count == 2
select frmHauptForm.lvwKatalog 1
press frmHauptForm.imgWaveEdit
press frmWaveEditor.imgEffekt(1)
type frmWaveEditor.txtVolume 8192
key frmWaveEditor Return
press frmWaveEditor.imgVolumeByPass
press frmWaveEditor.imgZurück
select frmHauptForm.lvwKatalog 1 2
press frmHauptForm.imgAssistent
writefile ${DISK} text ${FAULT}
answer 6
answer-all 7
