# An effect goes into the file.
begin one_song
press frmHauptForm.imgWaveEdit
press frmWaveEditor.imgEffekt(1)
type frmWaveEditor.txtVolume 8192
key frmWaveEditor Return
press frmWaveEditor.imgVolumeByPass
writefile ${DISK} text ${FAULT}
press frmWaveEditor.imgSteuerung(5)
answer-all 7
wait 5000
answer-all 7
press frmWaveEditor.imgZurück
answer-all 7
