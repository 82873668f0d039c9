# Applies half the volume to one file, and then the last setting to all three files at once.
home home
screen 1024 768
setting Show_Start_Assistant 0
makewave C:\m\azul.wav 3 300
makewave C:\m\blanco.wav 4 400
makewave C:\m\claro.wav 5 500
start
press frmHauptForm.imgAssistent
expect-box ~ "Como aún no ha utilizado este editor"
answer 7
press frmHauptForm.imgWaveEdit
expect-box ~ "No se ha detectado ninguna pista audio"
answer 7
press frmHauptForm.imgLiedImport
choose C:\m\azul.wav C:\m\blanco.wav C:\m\claro.wav
key frmNeuerInterpret Return
key frmNeuerInterpret Return
key frmNeuerInterpret Return
select frmHauptForm.lvwKatalog 1
press frmHauptForm.imgWaveEdit
expect-window frmWaveEditor
# without an effect there is nothing to apply
press frmWaveEditor.imgSteuerung(5)
expect frmWaveEditor.lblStatus.Caption == ""
press frmWaveEditor.imgEffekt(1)
type frmWaveEditor.txtVolume 8192
key frmWaveEditor Return
expect frmWaveEditor.txtVolume.Text == 50
press frmWaveEditor.imgVolumeByPass
press frmWaveEditor.imgSteuerung(5)
within 30000 expect frmWaveEditor.Enabled == True
expect frmWaveEditor.lblStatus.Caption == ""
expect-file C:\WINDOWS\TEMP\temp001.dat missing
shot pictures/frmWaveEditor_volume.png
press frmWaveEditor.imgZurück
expect-window frmHauptForm
expect frmHauptForm.lvwKatalog.Count == 3
expect frmHauptForm.lvwKatalog(1,4) == "00:03"
expect-file C:\m\azul.wav size 529244
# a refused batch does nothing; an accepted one shows its progress
select frmHauptForm.lvwKatalog 1 2 3
press frmHauptForm.imgAssistent
expect-box ~ "últimos parámetros del editor audio"
answer 7
expect frmHauptForm.shpStapel.Visible == False
select frmHauptForm.lvwKatalog 1 2 3
press frmHauptForm.imgAssistent
after 1200 expect frmHauptForm.lblRestzeitCD.Caption ~ "^[123] / 3$"
after 1200 expect frmHauptForm.Enabled == False
after 1200 expect frmHauptForm.shpStapel.Visible == True
after 1200 shot pictures/frmHauptForm_batch.png frmHauptForm
answer 6
expect-window frmHauptForm
expect frmHauptForm.shpStapel.Visible == False
expect frmHauptForm.lblRestzeitCD.Caption == "Quedan:79:48"
expect-file C:\m\blanco.wav size 705644
expect-file C:\m\claro.wav size 882044
expect-file C:\WINDOWS\TEMP\temp.001 missing
# the menu of the list offers both
rightclick frmHauptForm.lvwKatalog
menu mnuWAVEditor
expect-window frmWaveEditor
window close
rightclick frmHauptForm.lvwKatalog
menu mnuWaveAssistent
expect-box ~ "últimos parámetros"
answer 7
close
