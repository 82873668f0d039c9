# Disc At Once; then the disc is read again and compared with its waves.
home home
screen 1024 768
clock 2026-11-24 10:00
setting Show_Start_Assistant 0
setting Show_TAO_Message 0
setting Verify_Burn 1
makewave C:\m\uno.wav 4 300
makewave C:\m\dos.wav 5 400
start
press frmHauptForm.imgLiedImport
choose C:\m\uno.wav C:\m\dos.wav
key frmNeuerInterpret Return
key frmNeuerInterpret Return
press frmHauptForm.imgBrennen
press frmCDBrennen.optDiscAtOnce
drive "disc virgen" ${FAULT}
press frmCDBrennen.imgBrennen
answer-all 6
