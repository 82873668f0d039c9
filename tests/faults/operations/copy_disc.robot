# The tracks of a disc go into the catalog, for a copy.
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
press frmHauptForm.imgBrennen
press frmCDBrennen.imgBrennen
answer-all 7
disc insert "C:\Vantora\Discos\Disco 001.cue"
press frmHauptForm.imgCDKopieren
answer 7
writefile ${DISK} text ${FAULT}
answer 6
answer-all 7
