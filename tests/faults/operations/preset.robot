# A preset is stored.
begin one_song
press frmHauptForm.imgWaveEdit
press frmWaveEditor.imgEQPresets
type frmWaveEditor.txtPresName "Mi sonido"
writefile ${DISK} text ${FAULT}
key frmWaveEditor Return
answer-all 7
press frmWaveEditor.imgZurück
answer-all 7
