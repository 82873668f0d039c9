# The refusals of the medley and the limits of its values.
home home
screen 800 600
setting Show_Start_Assistant 0
makewave C:\m\1.wav 6 220
makewave C:\m\2.wav 5 330
makewave C:\m\3.wav 3 440
start
press frmHauptForm.imgTitel
expect-box ~ "no contiene ninguna pista"
answer 7
press frmHauptForm.imgLiedImport
choose C:\m\1.wav C:\m\2.wav C:\m\3.wav
key frmNeuerInterpret Return
key frmNeuerInterpret Return
key frmNeuerInterpret Return
select frmHauptForm.lvwKatalog 1
press frmHauptForm.imgTitel
expect-box ~ "por lo menos dos pistas"
answer 7

# opened by the menu of the list
select frmHauptForm.lvwKatalog 1 2 3
rightclick frmHauptForm.lvwKatalog
menu mnuUeberblenden
expect-window frmMedley
shot pictures/frmMedley_800.png
type frmMedley.txtBPM 300
key frmMedley Return
expect frmMedley.txtBPM == 280
expect frmMedley.imgMedleyKnopf == 280
type frmMedley.txtBPM 20
key frmMedley Return
expect frmMedley.txtBPM == 50
type frmMedley.txtBPM abc
key frmMedley Return
expect frmMedley.txtBPM == 50
drag frmMedley.imgMedleyKnopf 990 0
expect frmMedley.txtBPM == 280
# the duration is limited to the shorter of the two tracks
type frmMedley.txtDauer 9
key frmMedley Return
expect frmMedley.txtDauer == 5
type frmMedley.txtDauer 0
key frmMedley Return
expect frmMedley.txtDauer == 1

# the last row has no transition
select frmMedley.lstMedleyTracks 3
expect frmMedley.txtDauer.Enabled == False
expect frmMedley.chkPitch.Enabled == False
expect frmMedley.imgPreview.Enabled == False
expect frmMedley.picWaveToFade(0).Visible == False
expect frmMedley.lblSongName(1).Visible == False

# the knob changed only the text of the first row; leaving the row has stored it
select frmMedley.lstMedleyTracks 2
expect frmMedley.txtBPM == ""
select frmMedley.lstMedleyTracks 1
expect frmMedley.txtBPM == 280

# the second and third track are refused, since one of them is too short
select frmMedley.lstMedleyTracks 2
press frmMedley.imgPreview
expect-box ~ "demasiado corto"
answer 7
expect-window frmMedley
# with the tempo ticked, both tracks need a tempo
select frmMedley.lstMedleyTracks 1
press frmMedley.chkPitch
press frmMedley.imgPreview
expect-box ~ "no tiene tempo"
answer 7
within 20000 expect frmMedley.imgOK.Enabled == True
press frmMedley.chkPitch
# the played sound was silent
wait 500
within 20000 expect frmMedley.lblButtCaption(3) == Reproducir

# playing stops when another row is selected
press frmMedley.imgStartStop
expect frmMedley.lblButtCaption(3) == Detener
select frmMedley.lstMedleyTracks 2
expect frmMedley.lblButtCaption(3) == Reproducir

# a track whose file is gone does not play
delete C:\m\3.wav
select frmMedley.lstMedleyTracks 3
press frmMedley.imgStartStop
expect frmMedley.lblButtCaption(3) == Reproducir
select frmMedley.lstMedleyTracks 2
# two taps within one millisecond
press frmMedley.imgSpeedMeasure
wait 500
key frmBeatCounter Space
key frmBeatCounter Space
key frmBeatCounter Space
expect-box ~ "\(11\)"
answer 7
expect-window frmBeatCounter
key frmBeatCounter Space
wait 400
key frmBeatCounter Space
wait 400
key frmBeatCounter Space
key frmBeatCounter Escape
expect-window frmMedley
expect frmMedley.txtBPM == ""

window close
expect-window frmHauptForm
expect-file C:\m\1.wav size 1058444
expect frmHauptForm.lvwKatalog(1,0) == " "
close
