# Three songs become one piece: the user taps the tempo of the first, drags the length of its
# transition to the next, listens to the transition, joins all songs and burns a disc without gaps.
home home
screen 1024 768
setting Show_Start_Assistant 0
setting Temporary_Directory C:\WINDOWS\TEMP\
makewave C:\m\1.wav 30 220
makewave C:\m\2.wav 31 330
makewave C:\m\3.wav 29 440
start
press frmHauptForm.imgLiedImport
choose C:\m\1.wav C:\m\2.wav C:\m\3.wav
type frmNeuerInterpret.txtTitel "Uno"
type frmNeuerInterpret.txtInterpret "Las olas"
key frmNeuerInterpret Return
type frmNeuerInterpret.txtTitel "Dos"
key frmNeuerInterpret Return
type frmNeuerInterpret.txtTitel "Tres"
key frmNeuerInterpret Return
expect frmHauptForm.lvwKatalog.Count == 3
# the row between the selected rows is included
select frmHauptForm.lvwKatalog 1 3
press frmHauptForm.imgTitel
expect-window frmMedley
expect frmMedley.lstMedleyTracks.Count == 3
expect frmMedley.lblSongName(0) == "Las olas: Uno"
expect frmMedley.lblSongName(1).ToolTipText ~ "Dos"
expect frmMedley.txtBPM == 50
expect frmMedley.txtDauer == 1
shot pictures/frmMedley.png

# the tempo of the first song: every second tap measures
press frmMedley.imgSpeedMeasure
expect-window frmBeatCounter
expect frmBeatCounter.lblBeatDisplay == 150
key frmBeatCounter Space
wait 500
key frmBeatCounter Space
wait 500
key frmBeatCounter Space
wait 500
key frmBeatCounter Space
wait 500
key frmBeatCounter Space
wait 500
expect frmBeatCounter.lblBeatDisplay > 115
expect frmBeatCounter.lblBeatDisplay < 125
shot pictures/frmBeatCounter.png
press frmBeatCounter.imgOK
expect-window frmMedley
expect frmMedley.txtBPM > 115
expect frmMedley.imgMedleyKnopf > 115

# the user drags the strip to the right, which shows the length of the fade; the arrow keys do the
# same
drag frmMedley.picWaveToFade(0) 500 660
expect frmMedley.txtDauer == 5
key frmMedley Right
expect frmMedley.txtDauer == 6
key frmMedley Left
expect frmMedley.txtDauer == 5
press frmMedley.imgPreview
within 20000 expect frmMedley.lblButtCaption(3) == Detener

# the second row keeps its own values, and so does the first
select frmMedley.lstMedleyTracks 2
expect frmMedley.txtBPM == ""
expect frmMedley.txtDauer == 1
type frmMedley.txtDauer 2
key frmMedley Return
select frmMedley.lstMedleyTracks 1
expect frmMedley.txtDauer == 5
press frmMedley.imgOK
within 60000 expect-window frmHauptForm
expect frmHauptForm.lvwKatalog(1,0) == X
expect frmHauptForm.lvwKatalog(3,0) == X
expect-file C:\WINDOWS\TEMP\xfade.dat missing
expect-file C:\WINDOWS\TEMP\temp00.dat missing
# each file has lost its half of a fade of 5 seconds and of one of 2 seconds
expect-file C:\m\1.wav size 4851044
expect-file C:\m\2.wav size 4851044
expect-file C:\m\3.wav size 4939244

press frmHauptForm.imgBrennen
expect frmCDBrennen.optDiscAtOnce.Value == True
press frmCDBrennen.imgBrennen
expect-box ~ "CD virgen"
answer 7
within 60000 expect-box ~ "Finalizó la operación de grabado"
answer 7
answer 7
expect-window frmHauptForm
# the disc contains the three files without gaps
expect-file "C:\Vantora\Discos\Disco 001.bin" size 14641200
close
