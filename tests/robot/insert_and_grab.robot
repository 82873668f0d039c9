# A disc is inserted, played, named and saved: first one track, then the others.
home home
screen 1024 768
setting Show_Start_Assistant 0
# a drive that is not there; the first one is used
setting LastAudioCDSelected 7
makewave C:\Música\azul.wav 6 330
makewave C:\Música\faro.wav 9 440
makewave C:\Música\luz.wav 4 262
start
# the embedded writer makes the disc
press frmHauptForm.imgLiedImport
choose C:\Música\azul.wav C:\Música\faro.wav C:\Música\luz.wav
key frmNeuerInterpret Return
key frmNeuerInterpret Return
key frmNeuerInterpret Return
press frmHauptForm.imgBrennen
press frmCDBrennen.optDiscAtOnce
press frmCDBrennen.imgBrennen
answer 7
answer 7
answer 7
press frmHauptForm.imgNeuerKatalog
answer 7
expect frmHauptForm.lvwKatalog.Count == 0
# an empty tray is reported, and the program asks again
press frmHauptForm.imgCDAuslesen
expect-box ~ "No hay ningún CD audio"
answer 7
expect-window frmCDPlayer
expect frmCDPlayer.lblStatus.Caption == "¡Imposible encontrar el CD audio!"
expect frmCDPlayer.imgSpeichern.Enabled == False
disc insert "C:\Vantora\Discos\Disco 001.cue"
select frmCDPlayer.lstDriveLetter 1
expect frmCDPlayer.lstTracks.Count == 3
expect frmCDPlayer.lstTracks(2) == "Pista02     00:09     2 Mb  "
expect frmCDPlayer.txtAnzahlTracks.Caption == 3
expect frmCDPlayer.lstDriveLetter(1) ~ "^D:. VANTORA IMAGE"
expect frmCDPlayer.txtCDLengthMs.Caption == "00:18"
expect frmCDPlayer.txtCDLengthMB.Caption == 3
expect frmCDPlayer.txtZeit.Caption == "00:00:06"
expect frmCDPlayer.lblStatus.Caption == "¡CD audio correcto!"
shot pictures/frmCDPlayer.png
# listening
press frmCDPlayer.imgPlay
wait 3000
expect frmCDPlayer.txtPosition.Caption ~ "00:0[234]"
press frmCDPlayer.cmdNextSong
expect frmCDPlayer.txtTrackNr.Caption == 2
press frmCDPlayer.imgStop
expect frmCDPlayer.txtPosition.Caption == "(00:00)"
# the user names a track
select frmCDPlayer.lstTracks 2
doubleclick frmCDPlayer.lstTracks
type frmCDPlayer.txtSongname "L'étoile du soir"
shot pictures/frmCDPlayer_nombre.png
key frmCDPlayer Return
expect frmCDPlayer.lstTracks(2) ~ "^L´étoile du soir "
# for one track the program asks for the file
select frmCDPlayer.lstTracks 2
press frmCDPlayer.imgSpeichern
expect-window frmLoadSave
expect frmLoadSave.txtDateiName.Text == "L´étoile du soir.wav"
choose "C:\Vantora\Wavs\mi estrella"
expect-box == "Reproducción correcta de los títulos audio"
answer 7
expect-file C:\Vantora\Wavs\mi_estrella.wav exists
# several tracks go into a folder
press frmCDPlayer.imgAllesWaehlen
expect frmCDPlayer.lstTracks.SelCount == 3
press frmCDPlayer.imgSpeichern
expect-box ~ "Reproducción correcta"
answer 7
key frmCDPlayer Escape
expect-window frmHauptForm
expect frmHauptForm.lvwKatalog.Count == 4
expect frmHauptForm.lvwKatalog(1,2) == "L´étoile du soir"
expect frmHauptForm.lvwKatalog(2,2) == Pista01
expect frmHauptForm.lvwKatalog(3,7) == C:\Vantora\Wavs\L´étoile_du_soir.wav
expect-file C:\Vantora\Wavs\Pista03.wav exists
# at a second save, existing files are not replaced
press frmHauptForm.imgCDAuslesen
press frmCDPlayer.imgAllesWaehlen
press frmCDPlayer.imgSpeichern
expect-box ~ "Este archivo ya existe. Pista01.wav"
answer 7
key frmCDPlayer Escape
expect frmHauptForm.lvwKatalog.Count == 4
close
