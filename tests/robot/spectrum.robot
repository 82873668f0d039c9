# The spectrum of a track beside its wave, of a part of it, and over the whole screen.
home home
screen 1024 768
setting Show_Start_Assistant 0
setting Show3DAnalysis 1
makewave C:\Música\azul.wav 8 330
start
press frmHauptForm.imgLiedImport
choose C:\Música\azul.wav
key frmNeuerInterpret Return
select frmHauptForm.lvwKatalog 1
press frmHauptForm.imgWaveEdit
expect-window frmWaveEditor
within 60000 expect frmWaveEditor.tmr3D.Enabled == False
expect frmWaveEditor.pic3D.Drawn > 100
# the new picture appears two seconds after the selection
drag frmWaveEditor.picWaveBack 250 255
within 60000 expect frmWaveEditor.tmr3D.Enabled == False
shot pictures/frmWaveEditor_espectro.png
doubleclick frmWaveEditor.pic3D
expect-window frmSpektrum
expect frmSpektrum.Width == 15360
expect frmSpektrum.Height == 11520
within 60000 expect frmSpektrum.picSpektrum.Drawn > 100
expect frmSpektrum.lblButtCaption(0).Caption == Aceptar
expect frmSpektrum.cmdOK.ToolTipText == "Cerrar representación 3D."
shot pictures/frmSpektrum.png
press frmSpektrum.cmdOK
expect-window frmWaveEditor
# the track has been deleted: the window opens without a picture
delete C:\Música\azul.wav
doubleclick frmWaveEditor.pic3D
expect-window frmSpektrum
expect frmSpektrum.picSpektrum.Drawn == 0
key frmSpektrum Escape
expect-window frmWaveEditor
press frmWaveEditor.imgZurück
expect-window frmHauptForm
close
