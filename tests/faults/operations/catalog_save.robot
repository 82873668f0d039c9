# A changed catalog replaces its file.
begin two_songs
press frmHauptForm.imgKatalogSpeichern
choose C:\Vantora\Catálogo\uno.vtr
select frmHauptForm.lvwKatalog 1
press frmHauptForm.imgMove(1)
press frmHauptForm.imgKatalogSpeichern
choose C:\Vantora\Catálogo\uno.vtr
writefile ${DISK} text ${FAULT}
answer-all 6
