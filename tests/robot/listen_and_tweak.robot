# Plays a range, also in a loop, winds and zooms, while effects are switched on and off.
home home
screen 1024 600
setting Show_Start_Assistant 0
makewave C:\m\azul.wav 60 330
start
press frmHauptForm.imgLiedImport
choose C:\m\azul.wav
key frmNeuerInterpret Return
load 20
press frmHauptForm.imgWaveEdit
press frmWaveEditor.imgSteuerung(0)
expect frmWaveEditor.imgNormalize.Enabled == False
within 20000 expect frmWaveEditor.lblStatus.Caption ~ "^0:0[2-9]"
expect frmWaveEditor.lblCPU.Visible == True
# the equalizer while playing
press frmWaveEditor.imgByPass
drag frmWaveEditor.MMSliderX1(0) 500 900
drag frmWaveEditor.MMSliderX1(9) 500 100
expect frmWaveEditor.imgByPass.Picture == "WAVE_EQBUTT_ON"
expect frmWaveEditor.imgEffekt(0).Picture == "WAVEEFFEKTON_0"
press frmWaveEditor.imgEffekt(2)
press frmWaveEditor.imgHallByPass
drag frmWaveEditor.sliderOutputGain 100 700
press frmWaveEditor.imgEffekt(4)
press frmWaveEditor.imgFlangerBypass
type frmWaveEditor.txtFlangerRate 2.5
key frmWaveEditor Return
expect frmWaveEditor.slFlangerRate.Value == 50
press frmWaveEditor.imgEffekt(3)
press frmWaveEditor.imgDeclickByPass
expect frmWaveEditor.imgEffekt(3).Picture == "WAVEEFFEKTON_3"
within 20000 expect frmWaveEditor.lblStatus.Caption ~ "^0:[1-5]"
# effects cannot be applied during playing
expect frmWaveEditor.imgSteuerung(5).Enabled == False
press frmWaveEditor.imgSteuerung(2)
press frmWaveEditor.imgSteuerung(2)
press frmWaveEditor.imgSteuerung(1)
expect frmWaveEditor.imgSteuerung(5).Enabled == True
# on a busy machine a filter cannot be switched on
load 95
wait 4000
press frmWaveEditor.imgDecrackleByPass
expect frmWaveEditor.imgDecrackleByPass.Picture == "WAVE_RESTAURATIONBYPASS_UNPRESSED"
load 20
wait 4000
press frmWaveEditor.imgDecrackleByPass
expect frmWaveEditor.imgDecrackleByPass.Picture == "WAVE_RESTAURATIONBYPASS_ON"
press frmWaveEditor.imgEffekt(5)
expect frmWaveEditor.imgDecrackleByPass.Picture == "WAVE_RESTAURATIONBYPASS_UNPRESSED"
# zooms, and plays a range in a loop
press frmWaveEditor.imgZoom(0)
press frmWaveEditor.imgZoom(0)
expect frmWaveEditor.lblZoomFaktor.Caption == "4x Zoom"
expect frmWaveEditor.sliderWave.Visible == True
press frmWaveEditor.imgZoom(2)
drag frmWaveEditor.picWaveBack 500 550
press frmWaveEditor.imgLoop
wait 8000
expect frmWaveEditor.lblStatus.Caption ~ "^[01]:3[0-3]"
press frmWaveEditor.imgLoop
expect frmWaveEditor.imgSteuerung(5).Enabled == True
# winds by half a second at a time, faster and faster
press frmWaveEditor.imgSteuerung(1)
press frmWaveEditor.picWaveBack 100
hold frmWaveEditor.imgSteuerung(3) 3000
expect frmWaveEditor.lblStatus.Caption ~ "^0:(0[7-9]|1)"
press frmWaveEditor.imgZurück
close
