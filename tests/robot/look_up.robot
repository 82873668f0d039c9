# A disc is inserted, and its titles are looked up at a CDDB server, stored and saved with its
# tracks. A server that cannot be reached, a server that closes the connection and a disc without an
# exact match are reported.
home home
screen 1024 768
setting Show_Start_Assistant 0
setting CDDBactive 1
setting CDDB_Server 127.0.0.1:${CDDB_CUT_PORT}
makewave C:\Música\azul.wav 6 330
makewave C:\Música\faro.wav 9 440
makewave C:\Música\luz.wav 4 262
start
# the embedded writer makes two discs
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
press frmHauptForm.imgLiedImport
choose C:\Música\luz.wav C:\Música\faro.wav
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
# the server closes the connection in the middle of its answer; the disc can be used nevertheless
disc insert "C:\Vantora\Discos\Disco 001.cue"
press frmHauptForm.imgCDAuslesen
expect-box ~ "en Internet\?$"
shot pictures/look_up_question.png
answer 6
expect-box ~ "^No se puede encontrar el CD .* pruebe de nuevo"
shot pictures/look_up_not_found.png
answer 7
expect-window frmCDPlayer
expect frmCDPlayer.lstTracks.Count == 3
expect frmCDPlayer.lstTracks(1) ~ "^Pista01 +00:06 "
expect frmCDPlayer.txtCDInfo.Caption == ""
expect frmCDPlayer.lblStatus.Caption == "¡CD audio correcto!"
press frmCDPlayer.imgPlay
wait 3000
expect frmCDPlayer.txtPosition.Caption ~ "00:0[234]"
press frmCDPlayer.imgStop
expect-file C:\WINDOWS\cdplayer.ini missing
key frmCDPlayer Escape
close
# no server answers
setting CDDB_Server 127.0.0.1:1
start
press frmHauptForm.imgCDAuslesen
answer 6
expect-box ~ "^Imposible establecer la conexión al servidor CDDB"
shot pictures/look_up_no_server.png
answer 7
expect frmCDPlayer.lstTracks(3) ~ "^Pista03 +00:03 "
window close frmCDPlayer
close
# a server that knows the disc; a user who declines is not connected to it
setting CDDB_Server 127.0.0.1:${CDDB_PORT}
start
press frmHauptForm.imgCDAuslesen
answer 7
expect frmCDPlayer.lstTracks(1) ~ "^Pista01 "
expect-file C:\WINDOWS\cdplayer.ini missing
select frmCDPlayer.lstDriveLetter 1
answer 6
expect-window frmCDPlayer
expect frmCDPlayer.txtCDInfo.Caption == "Las olas: Mar de invierno"
expect frmCDPlayer.lstTracks.Count == 3
expect frmCDPlayer.lstTracks(1) ~ "^Canción del faro +00:06 "
expect frmCDPlayer.lstTracks(2) ~ "^L'amour, otra vez: Marta Ríos +00:09 "
expect frmCDPlayer.lstTracks(3) ~ "^Brisa 1/2 +00:03 "
expect frmCDPlayer.lblStatus.Caption == "¡CD audio correcto!"
shot pictures/look_up_titles.png
# results are stored at once; a name typed by the user is stored when the user agrees
expect-file C:\WINDOWS\cdplayer.ini size 142
select frmCDPlayer.lstTracks 3
doubleclick frmCDPlayer.lstTracks
type frmCDPlayer.txtSongname "Brisa nueva"
key frmCDPlayer Return
expect-file C:\WINDOWS\cdplayer.ini size 142
press frmCDPlayer.imgDBAufnahme
expect-file C:\WINDOWS\cdplayer.ini size 144
# the tracks enter the catalog with their titles
press frmCDPlayer.imgAllesWaehlen
press frmCDPlayer.imgSpeichern
expect-box == "Reproducción correcta de los títulos audio"
answer 7
expect-file C:\Vantora\Wavs\Canción_del_faro.wav size 1058444
expect-file C:\Vantora\Wavs\L'amour,_otra_vez__Marta_Ríos.wav size 1587644
expect-file C:\Vantora\Wavs\Brisa_nueva.wav size 705644
# another disc, for which the server has only similar ones, gets no names
disc eject
disc insert "C:\Vantora\Discos\Disco 002.cue"
select frmCDPlayer.lstDriveLetter 1
answer 6
expect-box ~ "^No se puede encontrar el CD "
answer 7
expect frmCDPlayer.lstTracks.Count == 2
expect frmCDPlayer.lstTracks(1) ~ "^Pista01 +00:09 "
expect frmCDPlayer.txtCDInfo.Caption == ""
key frmCDPlayer Escape
expect-window frmHauptForm
expect frmHauptForm.lvwKatalog.Count == 3
expect frmHauptForm.lvwKatalog(1,2) == "Canción del faro"
expect frmHauptForm.lvwKatalog(2,2) == "L'amour, otra vez: Marta Ríos"
expect frmHauptForm.lvwKatalog(3,2) == "Brisa nueva"
expect frmHauptForm.lvwKatalog(3,3) == "Las olas"
shot pictures/look_up_catalog.png
close
