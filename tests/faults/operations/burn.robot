# A disc with pauses is written, with its protocol and its entry in the database.
home home
screen 1024 768
clock 2026-11-24 10:00
setting Show_Start_Assistant 0
setting Show_TAO_Message 0
setting Auto_Database 1
makewave C:\m\uno.wav 3 300
makewave C:\m\dos.wav 4 400
start
press frmHauptForm.imgLiedImport
choose C:\m\uno.wav C:\m\dos.wav
key frmNeuerInterpret Return
key frmNeuerInterpret Return
expect frmHauptForm.lvwKatalog.Count == 2
press frmHauptForm.imgBrennen
press frmCDBrennen.optTrackAtOnce
writefile ${DISK} text ${FAULT}
press frmCDBrennen.imgBrennen
answer-all 7
