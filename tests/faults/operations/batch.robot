# An effect goes into two files.
begin two_songs
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
