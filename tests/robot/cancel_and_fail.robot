# A writer that is not ready, a writer that fails in the middle, and a user who cancels.
home home
screen 1024 768
setting Show_Start_Assistant 0
setting Show_TAO_Message 0
makewave C:\m\uno.wav 30 300
start
press frmHauptForm.imgLiedImport
choose C:\m\uno.wav
key frmNeuerInterpret Return
press frmHauptForm.imgBrennen
writer not-ready 2
press frmCDBrennen.imgBrennen
expect-box ~ "CD virgen"
answer 7
expect-box ~ "La grabadora no está lista"
answer 6
expect-box ~ "Operación cancelada"
answer 7
expect-window frmCDBrennen
press frmCDBrennen.imgBrennen
expect frmMBox.imgBoxType.Picture == MBOXAUSKUNFT
answer 7
expect-box ~ "Finalizó"
expect frmMBox.imgBoxType.Picture == MBOXERFOLG
answer 7
expect frmMBox.imgBoxType.Picture == MBOXFRAGE
answer 7
press frmHauptForm.imgBrennen
expect frmCDBrennen.lblAblage.Caption == "Imagen guardada: C:\Vantora\Discos\Disco 001.cue"
# the place of the image before does not stand below a burn that failed
writer fail at 40 %
press frmCDBrennen.imgBrennen
answer 7
expect-box ~ "Error de grabado: 803"
expect frmCDBrennen.lblAblage.Caption == ""
answer 7
expect-box ~ "Operación cancelada"
answer 7
writer fail AddTrack
press frmCDBrennen.imgBrennen
expect-box ~ "No se ha podido abrir"
answer 7
expect-box ~ "Operación cancelada"
answer 7
writer pace 1
after 15000 shot pictures/frmSchreibFortschritt.png
after 15500 press frmSchreibFortschritt.imgAbbrechen
press frmCDBrennen.imgBrennen
answer 7
expect-box ~ "Operación cancelada"
answer 7
expect-file "C:\Vantora\Discos\Disco 002.bin" missing
expect-file "C:\Vantora\Discos\Disco 002.cue" missing
key frmCDBrennen Escape
wait 2000
expect-window frmHauptForm
# a wave that is gone is reported before the window opens
delete C:\m\uno.wav
press frmHauptForm.imgBrennen
expect-box ~ "1\s+C:\\m\\uno\.wav"
answer 7
expect-window frmHauptForm
close
