# The undo of a cut.
begin one_song
press frmHauptForm.imgWaveEdit
drag frmWaveEditor.picWaveBack 250 500
press frmWaveEditor.imgCut
writefile ${DISK} text ${FAULT}
press frmWaveEditor.imgSteuerung(6)
answer-all 7
press frmWaveEditor.imgZurück
answer-all 7
