# A wave file comes into the catalog.
makewave C:\m\uno.wav 3 300
start
press frmHauptForm.imgLiedImport
writefile ${DISK} text ${FAULT}
choose C:\m\uno.wav
answer-all 7
key frmNeuerInterpret Return
answer-all 7
