# A track of a disc becomes a wave file.
begin two_songs
press frmHauptForm.imgBrennen
press frmCDBrennen.imgBrennen
answer-all 7
disc insert "C:\Vantora\Discos\Disco 001.cue"
press frmHauptForm.imgCDAuslesen
select frmCDPlayer.lstTracks 2
press frmCDPlayer.imgSpeichern
writefile ${DISK} text ${FAULT}
choose C:\Vantora\Wavs\pista.wav
answer-all 7
