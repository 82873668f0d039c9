# A wave file comes into the catalog.
home home
screen 1024 768
clock 2026-11-24 10:00
setting Show_Start_Assistant 0
setting Show_TAO_Message 0
makewave C:\m\uno.wav 3 300
start
press frmHauptForm.imgLiedImport
writefile ${DISK} text ${FAULT}
choose C:\m\uno.wav
answer-all 7
key frmNeuerInterpret Return
answer-all 7
