# The user opens the window for burning.
home home
screen 1024 768
clock 2026-11-24 10:00
setting Show_Start_Assistant 0
setting Show_TAO_Message 0
makewave C:\m\uno.wav 4 300
start
press frmHauptForm.imgLiedImport
choose C:\m\uno.wav
key frmNeuerInterpret Return
drive "disc virgen" ${FAULT}
press frmHauptForm.imgBrennen
answer-all 7
