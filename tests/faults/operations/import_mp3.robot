# An MP3 file is decoded into a wave file.
home home
screen 1024 768
clock 2026-11-24 10:00
setting Show_Start_Assistant 0
setting Show_TAO_Message 0
makemp3 C:\m\canto.mp3 4 440
start
press frmHauptForm.imgLiedImport
writefile ${DISK} text ${FAULT}
choose C:\m\canto.mp3
answer-all 7
key frmNeuerInterpret Return
answer-all 7
