# An MP3 file is decoded into a wave file.
makemp3 C:\m\canto.mp3 4 440
start
press frmHauptForm.imgLiedImport
writefile ${DISK} text ${FAULT}
choose C:\m\canto.mp3
answer-all 7
key frmNeuerInterpret Return
answer-all 7
