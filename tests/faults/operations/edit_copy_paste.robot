# An edit in the wave editor.
begin one_song
press frmHauptForm.imgWaveEdit
drag frmWaveEditor.picWaveBack 250 500
writefile ${DISK} text ${FAULT}
press frmWaveEditor.imgCopy
answer-all 7
press frmWaveEditor.imgPaste
answer-all 7
press frmWaveEditor.imgZurück
answer-all 7
