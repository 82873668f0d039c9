# Two songs become one piece.
setting Temporary_Directory C:\WINDOWS\TEMP\
makewave C:\m\1.wav 8 220
makewave C:\m\2.wav 9 330
start
press frmHauptForm.imgLiedImport
choose C:\m\1.wav C:\m\2.wav
key frmNeuerInterpret Return
key frmNeuerInterpret Return
select frmHauptForm.lvwKatalog 1 2
press frmHauptForm.imgTitel
writefile ${DISK} text ${FAULT}
press frmMedley.imgOK
answer-all 7
