# Valid and invalid files, several at once, and the question before a file is replaced.
home home
screen 1024 768
setting Show_Start_Assistant 0
makewave C:\m\buena.wav 3 300
makewave C:\m\corta.wav 1 300
makewave C:\m\última.wav 3 300
makewave C:\m\mono.wav 3 300 mono
makewave C:\m\rápida.wav 3 300 rate 48000
makemp3 C:\m\canto.mp3 4 440
writefile C:\m\texto.mp3 text "<html>no es música</html>"
writefile C:\m\vacía.wav text ""
start
press frmHauptForm.imgLiedImport
choose cancel
press frmHauptForm.imgLiedImport
choose C:\m\mono.wav
expect-box ~ "RED BOOK"
answer 7
press frmHauptForm.imgLiedImport
choose C:\m\rápida.wav
expect-box ~ "RED BOOK"
answer 7
press frmHauptForm.imgLiedImport
choose C:\m\vacía.wav
expect-box ~ "RED BOOK"
answer 7
press frmHauptForm.imgLiedImport
choose C:\m\corta.wav
expect-box ~ "demasiado corta"
answer 7
press frmHauptForm.imgLiedImport
choose C:\m\texto.mp3
expect-box ~ "RED BOOK"
answer 7
expect frmHauptForm.lvwKatalog.Count == 0
# the dialog counts what is chosen; what is no music has no length
press frmHauptForm.imgLiedImport
select frmLoadSave.lstDatei 1
within 2000 expect frmLoadSave.lblAuswahl.Caption == "1 archivo elegido, en total 00:00:03"
expect frmLoadSave.lstDatei(2) == canto.mp3
expect frmLoadSave.lstDatei(6) == texto.mp3
select frmLoadSave.lstDatei 1 2 6
within 2000 expect frmLoadSave.lblAuswahl.Caption == "3 archivos elegidos, en total 00:00:07"
select frmLoadSave.lstDatei
within 2000 expect frmLoadSave.lblAuswahl.Caption == ""
choose C:\m\buena.wav C:\m\canto.mp3 C:\m\corta.wav C:\m\última.wav
key frmNeuerInterpret Return
key frmNeuerInterpret Return
expect-box ~ "siguiente"
answer 6
key frmNeuerInterpret Return
expect frmHauptForm.lvwKatalog.Count == 3
expect-file C:\Vantora\Wavs\canto.wav exists
press frmHauptForm.imgLiedImport
choose C:\m\canto.mp3
expect-box ~ "ya existe"
answer 7
expect frmHauptForm.lvwKatalog.Count == 3
press frmHauptForm.imgLiedImport
choose C:\m\canto.mp3
answer 6
key frmNeuerInterpret Return
expect frmHauptForm.lvwKatalog.Count == 4
# preview
select frmHauptForm.lvwKatalog 1
press frmHauptForm.imgAbspielen
wait 500
expect frmHauptForm.Level.Active == True
press frmHauptForm.imgStop
expect frmHauptForm.Level.Active == False
press frmHauptForm.imgÜberblenden
expect-box ~ "guardar el catálogo"
answer 7
expect-box ~ "salir del programa"
answer 7
expect-window frmHauptForm
close
