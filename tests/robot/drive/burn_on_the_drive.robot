# A user makes an audio CD on an emulated drive, listens to the disc and saves a track of it: the
# file equals the original byte by byte. The discs of the drive are in C:\drive.
home home
screen 1024 768
setting Show_Start_Assistant 0
setting Show_TAO_Message 0
makewave C:\Música\azul.wav 6 330
makewave C:\Música\faro.wav 9 440
start
press frmHauptForm.imgLiedImport
choose C:\Música\azul.wav C:\Música\faro.wav
type frmNeuerInterpret.txtTitel "Azul oscuro"
key frmNeuerInterpret Return
type frmNeuerInterpret.txtTitel "Canción del faro"
key frmNeuerInterpret Return
press frmHauptForm.imgBrennen
# the drive is listed before the embedded writer, and selected
expect frmCDBrennen.lstCDRecorder.Count == 2
expect frmCDBrennen.lstCDRecorder(1) ~ "CD-RW 48X16X48"
expect frmCDBrennen.lstCDRecorder(1).Selected == True
press frmCDBrennen.optDiscAtOnce
press frmCDBrennen.optBurnSpeed(4)
press frmCDBrennen.imgBrennen
expect-box ~ "CD virgen"
answer 7
expect-box ~ "Finalizó la operación de grabado"
answer 7
expect-box ~ "otro CD del catálogo"
answer 7
expect-window frmHauptForm
expect-file "C:\Vantora\Discos\Disco 001.cue" missing
# the drive contains the disc
press frmHauptForm.imgCDAuslesen
expect-window frmCDPlayer
expect frmCDPlayer.lblStatus.Caption == "¡CD audio correcto!"
expect frmCDPlayer.lstTracks.Count == 2
expect frmCDPlayer.lstTracks(2) ~ "^Pista02 "
select frmCDPlayer.lstTracks 2
press frmCDPlayer.imgSpeichern
choose C:\Vantora\Wavs\vuelta.wav
expect-box == "Reproducción correcta de los títulos audio"
answer 7
key frmCDPlayer Escape
expect-file C:\Vantora\Wavs\vuelta.wav sha256 cdb3d5dfe16c738df4e860244da20dd5a18746697b96806de7f9158379d3c89e
# the database has the disc with its titles
press frmHauptForm.imgDatenBank
expect frmDatenbank.lblVorhandeneCDNum.Caption == 1
expect frmDatenbank.lblVorhandeneTitelNum.Caption == 2
key frmDatenbank Escape
# a second disc, Track At Once, as a simulation: the blank disc stays blank
drive "disc otro"
press frmHauptForm.imgBrennen
press frmCDBrennen.optTrackAtOnce
press frmCDBrennen.chkSimulation
press frmCDBrennen.imgBrennen
answer 7
expect-box ~ "Finalizó la simulación"
answer 7
expect-file C:\drive\otro\image.bin missing
expect-window frmCDBrennen
press frmCDBrennen.chkSimulation
press frmCDBrennen.imgBrennen
answer 7
expect-box ~ "Finalizó la operación de grabado"
answer 7
answer 7
close
