# From a wave and an MP3 file to an audio CD, with the steps of a user. Played in real windows.
home .
screen 1024 768
echo "Se crea la música de muestra: un archivo WAVE y un MP3"
makewave C:\Música\azul.wav 8 330
makemp3 "C:\Música\mar abierto.mp3" 10 440

echo "Se inicia el programa"
start
expect-window frmStartAssistent
shot pictures/1-asistente.png
press frmStartAssistent.imgAbbrechen

echo "Se importan los dos archivos al catálogo"
press frmHauptForm.imgLiedImport
expect-window frmLoadSave
choose C:\Música\azul.wav
type frmNeuerInterpret.txtTitel "Azul oscuro"
type frmNeuerInterpret.txtInterpret "Las olas"
shot pictures/2-importar.png
press frmNeuerInterpret.imgControl(0)
press frmHauptForm.imgLiedImport
choose "C:\Música\mar abierto.mp3"
type frmNeuerInterpret.txtTitel "Mar abierto"
type frmNeuerInterpret.txtInterpret "Las olas"
press frmNeuerInterpret.imgControl(0)
expect frmHauptForm.lvwKatalog.Count == 2

echo "Se pone título al CD y se guarda el catálogo"
doubleclick frmHauptForm.lblKatalogTitel
type frmNeuerInterpret.txtTitel "Verano"
press frmNeuerInterpret.imgControl(0)
expect frmHauptForm.lblKatalogTitel.Caption == "Verano"
press frmHauptForm.imgKatalogSpeichern
choose C:\Vantora\Catálogo\verano.vtr
shot pictures/3-catálogo.png

echo "Se graba el CD"
press frmHauptForm.imgBrennen
expect-window frmCDBrennen
press frmCDBrennen.optTrackAtOnce
shot pictures/4-grabar.png
press frmCDBrennen.imgBrennen
expect-box ~ "modo TAO"
answer 6
expect-box ~ "CD virgen"
# the burn lasts 20 seconds; in the middle of it the progress window is visible
writer pace 1
after 10000 shot pictures/5-progreso.png
answer 7
expect-box ~ "Finalizó la operación de grabado"
shot pictures/6-terminado.png
answer 7
expect-box ~ "otro CD del catálogo"
answer 7
expect-window frmHauptForm
expect-file C:\Vantora\VTRBurn.log exists
close
echo "El programa se ha cerrado"
