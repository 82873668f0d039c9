# Every window of the program. `remake` plays it once a size: @SIZE@ is the width of the screen.
home home
screen @SCREEN@
clock 2026-11-24 10:00:00
copy song.wav "C:\Música\Azul oscuro.wav"
makewave "C:\Música\Bajo la lluvia.wav" 187 220
makewave "C:\Música\El faro.wav" 243 440
makewave "C:\Música\Última luz.wav" 168 262
makewave C:\Música\silencio.wav 0.02 20
makemp3 "C:\Música\Mar abierto.mp3" 480 294
# the splash window stands behind a message that comes early
sound off
start
shot frmStartUp_@SIZE@.png frmStartUp
shot SystemBox_@SIZE@.png
answer 7
shot frmStartAssistent_@SIZE@.png
press frmStartAssistent.chkNichtMehrZeigen
press frmStartAssistent.imgAbbrechen
close
sound on
mixer out Line 39000
mixer out CD 52000 mute
mixer out Mic 20000 noswitch
mixer out Wave 49152
mixer in Mic 26000
mixer in Line 49152 select
setting Show3DAnalysis 1
start
press frmHauptForm.imgPrintCover
shot frmMBox_@SIZE@.png
answer 7
press frmHauptForm.imgLiedImport
choose "C:\Música\Azul oscuro.wav" "C:\Música\Bajo la lluvia.wav" "C:\Música\El faro.wav" "C:\Música\Última luz.wav"
type frmNeuerInterpret.txtTitel "Azul oscuro"
type frmNeuerInterpret.txtInterpret "Las olas"
shot frmNeuerInterpret_@SIZE@.png
key frmNeuerInterpret Return
type frmNeuerInterpret.txtTitel "Bajo la lluvia"
type frmNeuerInterpret.txtInterpret "Las olas"
key frmNeuerInterpret Return
type frmNeuerInterpret.txtTitel "El faro"
type frmNeuerInterpret.txtInterpret "Rosa de los vientos"
key frmNeuerInterpret Return
type frmNeuerInterpret.txtTitel "Última luz"
type frmNeuerInterpret.txtInterpret "Las olas"
key frmNeuerInterpret Return
doubleclick frmHauptForm.lblKatalogTitel
type frmNeuerInterpret.txtTitel "Verano"
type frmNeuerInterpret.txtInterpret "Varios"
shot frmNeuerInterpret_disco_@SIZE@.png
key frmNeuerInterpret Return
press frmHauptForm.imgKatalogSpeichern
choose C:\Vantora\Catálogo\verano.vtr
select frmHauptForm.lvwKatalog 2
press frmHauptForm.imgAbspielen
wait 700
shot frmHauptForm_@SIZE@.png
press frmHauptForm.imgStop
rightclick frmHauptForm.lvwKatalog
shot frmHauptForm_menu_@SIZE@.png
menu mnuDelete
shot frmMBox_pregunta_@SIZE@.png
answer 7
press frmHauptForm.imgLiedKatalog
choose C:\Vantora\Catálogo\verano.vtr
select frmLiedAusKatalog.lstLiedAusKatalog 1 3
shot frmLiedAusKatalog_@SIZE@.png
key frmLiedAusKatalog Escape
press frmHauptForm.imgLiedImport
type frmLoadSave.txtDateiName C:\Música
press frmLoadSave.pbButton(1)
select frmLoadSave.lstDatei 1 3
within 60000 expect frmLoadSave.lblAuswahl.Caption ~ "en total"
shot frmLoadSave_@SIZE@.png
key frmLoadSave Escape
writer pace 16
press frmHauptForm.imgLiedImport
after 2500 shot frmSchreibFortschritt_mp3_@SIZE@.png
choose "C:\Música\Mar abierto.mp3"
key frmNeuerInterpret Return
# the recorder: a take that has ended, and one that runs
press frmHauptForm.imgLPKopieren
choose C:\Vantora\Wavs\vinilo.wav
press frmAufnehmen.imgAufnehmen
linein play "C:\Música\El faro.wav"
wait 20000
after 8000 linein play "C:\Música\Azul oscuro.wav"
linein play C:\Música\silencio.wav
within 60000 expect frmAufnehmen.lvwAufnehmen.Count == 2
select frmAufnehmen.lvwAufnehmen 1
doubleclick frmAufnehmen.lvwAufnehmen
type frmNeuerInterpret.txtTitel "Vals del puerto"
type frmNeuerInterpret.txtInterpret "Las olas"
key frmNeuerInterpret Return
wait 20000
shot frmAufnehmen_@SIZE@.png
press frmAufnehmen.imgRecordStop
press frmAufnehmen.imgAbbrechen
# a cover, with a picture on its front
makepicture C:\Vantora\Pictures\mar.bmp 1200 900
press frmHauptForm.imgPrintCover
type frmPrintStart.txtTitel(0) "Verano"
type frmPrintStart.txtTitel(1) "Varios"
shot frmPrintStart_@SIZE@.png
press frmPrintStart.imgSchrift
shot frmSchrift_@SIZE@.png
font cancel
press frmPrintStart.imgColor(0)
shot frmFarbe_@SIZE@.png
colour cancel
press frmPrintStart.imgReady
press frmPrint.lblBeschriftung(1) shift
shot frmPrint_dorso_@SIZE@.png
press frmPrint.lblBeschriftung(1) shift
press frmPrint.imgControl(1)
press frmPrint.imgLoadPic
choose C:\Vantora\Pictures\mar.bmp
expect-window frmPrint
pull frmPrint.lblInterPret 3000 1200
shot frmPrint_cubierta_@SIZE@.png
press frmPrint.imgControl(2)
shot frmPrint_etiqueta_@SIZE@.png
press frmPrint.imgPrintMe
shot frmDrucken_@SIZE@.png
print cancel
press frmPrint.imgAbbrechen
# the medley: a crossfade of six seconds, and the counter in the middle of a tap
select frmHauptForm.lvwKatalog 1 4
press frmHauptForm.imgTitel
type frmMedley.txtBPM 124
key frmMedley Return
type frmMedley.txtDauer 6
key frmMedley Return
press frmMedley.chkPitch
shot frmMedley_@SIZE@.png
press frmMedley.imgSpeedMeasure
key frmBeatCounter Space
wait 484
key frmBeatCounter Space
wait 484
key frmBeatCounter Space
wait 3000
after 1000 shot frmBeatCounter_@SIZE@.png
hold frmBeatCounter.imgBeat 3000
key frmBeatCounter Escape
key frmMedley Escape
press frmHauptForm.Logo
shot frmAbout_@SIZE@.png
key frmAbout Escape
press frmHauptForm.imgBrennen
shot frmCDBrennen_@SIZE@.png
after 25000 shot frmSchreibFortschritt_@SIZE@.png
press frmCDBrennen.imgBrennen
shot frmMBox_casilla_@SIZE@.png
answer 6
answer 7
answer 7
answer 7
press frmHauptForm.imgDatenBank
shot frmDatenbank_@SIZE@.png
key frmDatenbank Escape
press frmHauptForm.imgMixer
shot frmMixer_@SIZE@.png
key frmMixer Escape
press frmHauptForm.imgExtras
shot frmExtrasMenue_@SIZE@.png
key frmExtrasMenue Escape
disc insert "C:\Vantora\Discos\Disco 001.cue"
press frmHauptForm.imgCDAuslesen
wait 1500
select frmCDPlayer.lstTracks 2
shot frmCDPlayer_@SIZE@.png
key frmCDPlayer Escape
# the editor: a selection, its spectrum and the panels of the effects; the last one zoomed, as it plays
select frmHauptForm.lvwKatalog 1
press frmHauptForm.imgWaveEdit
expect-window frmWaveEditor
drag frmWaveEditor.picWaveBack 290 560
press frmWaveEditor.imgByPass
drag frmWaveEditor.MMSliderX1(0) 500 280
drag frmWaveEditor.MMSliderX1(1) 500 360
drag frmWaveEditor.MMSliderX1(4) 500 620
drag frmWaveEditor.MMSliderX1(8) 500 300
within 60000 expect frmWaveEditor.tmr3D.Enabled == False
wait 2000
shot frmWaveEditor_@SIZE@.png
doubleclick frmWaveEditor.pic3D
within 60000 expect frmSpektrum.picSpektrum.Drawn > 100
shot frmSpektrum_@SIZE@.png
key frmSpektrum Escape
press frmWaveEditor.imgEffekt(1)
press frmWaveEditor.imgVolumeByPass
press frmWaveEditor.imgGaterBypass
drag frmWaveEditor.slGaterThreshold 20 400
press frmWaveEditor.imgSteuerung(0)
wait 4000
shot frmWaveEditor_volumen_@SIZE@.png
press frmWaveEditor.imgSteuerung(1)
wait 4000
press frmWaveEditor.imgEffekt(2)
press frmWaveEditor.imgHallByPass
shot frmWaveEditor_hall_@SIZE@.png
press frmWaveEditor.imgEffekt(3)
press frmWaveEditor.imgDecrackleByPass
shot frmWaveEditor_restauracion_@SIZE@.png
press frmWaveEditor.imgEffekt(4)
press frmWaveEditor.imgFlangerPresets
select frmWaveEditor.lstPresets 2
press frmWaveEditor.imgZoom(0)
press frmWaveEditor.imgZoom(0)
press frmWaveEditor.imgSteuerung(0)
wait 4000
shot frmWaveEditor_flanger_@SIZE@.png
press frmWaveEditor.imgSteuerung(1)
press frmWaveEditor.imgZurück
expect-window frmHauptForm
wait 2000
close
