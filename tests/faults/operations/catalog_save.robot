# A changed catalog replaces its file.
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
expect frmHauptForm.lvwKatalog.Count == 2
press frmHauptForm.imgKatalogSpeichern
choose C:\Vantora\Catálogo\uno.vtr
select frmHauptForm.lvwKatalog 1
press frmHauptForm.imgMove(1)
press frmHauptForm.imgKatalogSpeichern
choose C:\Vantora\Catálogo\uno.vtr
writefile ${DISK} text ${FAULT}
answer-all 6
