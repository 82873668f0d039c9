# Presets are selected, created, refused, kept between runs and deleted.
home home
screen 1024 768
setting Show_Start_Assistant 0
setting Last_Catalog_Load 1
makewave C:\m\uno.wav 3 300
start
press frmHauptForm.imgLiedImport
choose C:\m\uno.wav
key frmNeuerInterpret Return
press frmHauptForm.imgKatalogSpeichern
choose C:\Vantora\Catálogo\uno.vtr
press frmHauptForm.imgWaveEdit
press frmWaveEditor.imgEQPresets
expect frmWaveEditor.lstPresets.Count == 3
select frmWaveEditor.lstPresets 2
expect frmWaveEditor.txtPresName.Text == "Sonido potente"
expect frmWaveEditor.MMSliderX1(0).Value == 6
expect frmWaveEditor.MMSliderX1(4).Value == -8
shot pictures/frmWaveEditor_presets.png
key frmWaveEditor Return
press frmWaveEditor.imgEddPres(0)
expect-box == "Seleccione otro nombre."
answer 7
type frmWaveEditor.txtPresName "Mi sonido"
key frmWaveEditor Return
expect frmWaveEditor.lstPresets.Count == 4
press frmWaveEditor.imgOK
expect frmWaveEditor.picPresets.Visible == False
# another effect panel closes the list
press frmWaveEditor.imgEffekt(4)
press frmWaveEditor.imgFlangerPresets
expect frmWaveEditor.lstPresets(1) == "Flanger fuerte"
select frmWaveEditor.lstPresets 2
expect frmWaveEditor.txtFlangerMix.Text == 83
expect frmWaveEditor.txtFlangerRate.Text == 3.5
press frmWaveEditor.imgEffekt(2)
expect frmWaveEditor.picPresets.Visible == False
# the reverb has its rooms
expect frmWaveEditor.comboPreset == Salón
expect frmWaveEditor.comboPreset.Count > 7
select frmWaveEditor.comboPreset 4
press frmWaveEditor.imgZurück
close
# the next run
start
press frmHauptForm.imgWaveEdit
press frmWaveEditor.imgEQPresets
expect frmWaveEditor.lstPresets(4) == "Mi sonido"
expect frmWaveEditor.MMSliderX1(0).Value == 0
select frmWaveEditor.lstPresets 4
expect frmWaveEditor.MMSliderX1(0).Value == 6
press frmWaveEditor.imgEddPres(1)
expect frmWaveEditor.lstPresets.Count == 3
select frmWaveEditor.lstPresets 1
press frmWaveEditor.imgEddPres(1)
expect frmWaveEditor.lstPresets(1) == "Sonido potente"
press frmWaveEditor.imgZurück
# the program's own presets are there again
press frmHauptForm.imgWaveEdit
press frmWaveEditor.imgEQPresets
expect frmWaveEditor.lstPresets(1) == "Sonido plano"
press frmWaveEditor.imgZurück
close
