# Cuts, restores, copies, inserts, silences and fades a range. Every edit but the insertion can be
# undone once.
home home
screen 1024 768
setting Show_Start_Assistant 0
makewave C:\m\azul.wav 8 330
start
press frmHauptForm.imgLiedImport
choose C:\m\azul.wav
key frmNeuerInterpret Return
press frmHauptForm.imgWaveEdit
expect frmWaveEditor.imgPaste.Enabled == False
press frmWaveEditor.imgSteuerung(6)
expect-box ~ "No ha hecho nada"
answer 7
press frmWaveEditor.imgMute
expect-box ~ "No ha seleccionado nada"
answer 7
# a click is a cursor, and a drag is a range in either direction
press frmWaveEditor.picWaveBack 500
expect frmWaveEditor.lblMarkerDelta.Caption == "0:00.0"
drag frmWaveEditor.picWaveBack 500 250
expect frmWaveEditor.lblMarkerDelta.Caption == "0:02:0"
drag frmWaveEditor.picWaveBack 500 1000
expect frmWaveEditor.lblMarkerDelta.Caption == "0:04:0"
doubleclick frmWaveEditor.picWaveBack 500
expect frmWaveEditor.lblMarkerDelta.Caption == "0:08:0"
press frmWaveEditor.cmdAuswahlAufheben
expect frmWaveEditor.shpMarker.Visible == False
# cut
drag frmWaveEditor.picWaveBack 250 500
expect frmWaveEditor.lblMarkerDelta.Caption == "0:02:0"
press frmWaveEditor.imgCut
expect frmWaveEditor.imgPaste.Enabled == True
press frmWaveEditor.cmdAllesAuswaehlen
expect frmWaveEditor.lblMarkerEnde.Caption == "0:06:0"
press frmWaveEditor.imgSteuerung(6)
expect-file C:\m\azul.wav size 1411244
press frmWaveEditor.cmdAllesAuswaehlen
expect frmWaveEditor.lblMarkerEnde.Caption == "0:08:0"
press frmWaveEditor.imgSteuerung(6)
expect-box ~ "No ha hecho nada"
answer 7
# block edits keep the length and can be undone
drag frmWaveEditor.picWaveBack 500 900
press frmWaveEditor.imgFadeOut
drag frmWaveEditor.picWaveBack 100 400
press frmWaveEditor.imgFadeIn
drag frmWaveEditor.picWaveBack 900 750
press frmWaveEditor.imgMute
press frmWaveEditor.imgSteuerung(6)
press frmWaveEditor.imgNormalize
expect-file C:\m\azul.wav size 1411244
expect frmWaveEditor.picWaveBack.Drawn > 30
# the same with the keyboard
press frmWaveEditor.picWaveBack
key frmWaveEditor Home
key frmWaveEditor Shift+End
expect frmWaveEditor.lblMarkerDelta.Caption == "0:08:0"
key frmWaveEditor Ctrl+X
expect-file C:\m\azul.wav size 44
key frmWaveEditor Ctrl+Z
expect-file C:\m\azul.wav size 1411244
# copies the file to its own end
press frmWaveEditor.cmdAllesAuswaehlen
press frmWaveEditor.imgCopy
press frmWaveEditor.imgPaste
expect-file C:\m\azul.wav size 2822444
# the insertion cannot be undone
press frmWaveEditor.imgSteuerung(6)
expect-file C:\m\azul.wav size 2822444
shot pictures/frmWaveEditor.png
press frmWaveEditor.imgZurück
expect frmHauptForm.lvwKatalog(1,4) == "00:16"
expect-file C:\WINDOWS\TEMP\undo2.dat missing
expect-file C:\WINDOWS\TEMP\copy.dat missing
close
