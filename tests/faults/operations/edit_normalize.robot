# An edit in the wave editor.
begin one_song
press frmHauptForm.imgWaveEdit
writefile ${DISK} text ${FAULT}
press frmWaveEditor.imgNormalize
answer-all 7
press frmWaveEditor.imgZurück
answer-all 7
