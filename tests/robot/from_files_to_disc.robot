# A user imports a wave and an MP3 file, names them, saves the catalog, and makes an audio CD.
home home
screen 1024 768
makewave C:\Música\azul.wav 6 330
makemp3 "C:\Música\mar abierto.mp3" 7 440
start
expect-window frmStartAssistent
shot pictures/frmStartAssistent.png
press frmStartAssistent.imgAbbrechen
expect frmHauptForm.lvwKatalog.Count == 0
press frmHauptForm.imgLiedImport
expect-window frmLoadSave
shot pictures/frmLoadSave.png
choose C:\Música\azul.wav
type frmNeuerInterpret.txtTitel "Azul oscuro"
type frmNeuerInterpret.txtInterpret "Las olas"
shot pictures/frmNeuerInterpret.png
press frmNeuerInterpret.imgControl(0)
expect frmHauptForm.lvwKatalog(1,2) == "Azul oscuro"
press frmHauptForm.imgLiedImport
choose "C:\Música\mar abierto.mp3"
type frmNeuerInterpret.txtTitel "Mar abierto"
press frmNeuerInterpret.imgControl(0)
expect frmHauptForm.lvwKatalog.Count == 2
expect frmHauptForm.lvwKatalog(2,7) == C:\Vantora\Wavs\mar_abierto.wav
expect frmHauptForm.lvwKatalog(2,2) == "Mar abierto"
doubleclick frmHauptForm.lblKatalogTitel
type frmNeuerInterpret.txtTitel "Verano"
press frmNeuerInterpret.imgControl(0)
expect frmHauptForm.lblKatalogTitel.Caption == "Verano"
# moves the second track to the front
select frmHauptForm.lvwKatalog 2
press frmHauptForm.imgMove(0)
expect frmHauptForm.lvwKatalog(1,2) == "Mar abierto"
press frmHauptForm.imgKatalogSpeichern
choose C:\Vantora\Catálogo\verano.vtr
expect-file C:\Vantora\Catálogo\verano.vtr exists
expect frmHauptForm.lblKatalogDatei.Caption == C:\Vantora\Catálogo\verano.vtr
shot pictures/frmHauptForm_1000.png
press frmHauptForm.imgBrennen
expect-window frmCDBrennen
press frmCDBrennen.optTrackAtOnce
shot pictures/frmCDBrennen.png
press frmCDBrennen.imgBrennen
expect-box ~ "modo TAO"
answer 6
expect-box ~ "CD virgen"
shot pictures/frmMBox.png
answer 7
expect-box ~ "Finalizó la operación de grabado"
answer 7
expect-box ~ "otro CD del catálogo"
answer 7
expect-window frmHauptForm
expect-file "C:\Vantora\Discos\Disco 001.bin" exists
expect-file "C:\Vantora\Discos\Disco 001.cue" exists
expect-file C:\Vantora\VTRBurn.log exists
close
