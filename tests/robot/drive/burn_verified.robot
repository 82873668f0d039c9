# Discs and images are compared with their waves after the burn, and the tracks that differ are
# named. The discs of the drive are in C:\drive.
home home
screen 1024 768
setting Show_Start_Assistant 0
setting Show_TAO_Message 0
setting Verify_Burn 1
makewave C:\Música\azul.wav 6 330
makewave C:\Música\faro.wav 9 440
makewave C:\Música\mar.wav 5 550
start
press frmHauptForm.imgLiedImport
choose C:\Música\azul.wav C:\Música\faro.wav C:\Música\mar.wav
type frmNeuerInterpret.txtTitel "Azul oscuro"
key frmNeuerInterpret Return
type frmNeuerInterpret.txtTitel "Canción del faro"
key frmNeuerInterpret Return
type frmNeuerInterpret.txtTitel "Mar de invierno"
key frmNeuerInterpret Return
press frmHauptForm.imgBrennen
# a drive that returns the sound late is no difference, and another copy of the disc follows
drive "disc bueno" "late 667"
press frmCDBrennen.optTrackAtOnce
press frmCDBrennen.imgBrennen
answer 7
expect-box ~ "Finalizó la operación de grabado"
answer 7
# a wrong sample in the second track, and a sector of the third that cannot be read
drive "disc rayado" "late 667" "wrong-sample 900" "read-error 1500"
answer 6
answer 7
expect-box ~ "no coinciden con sus archivos"
expect-box ~ "2\. Canción del faro"
expect-box ~ "3\. Mar de invierno"
answer 7
answer 7
expect-file C:\drive\rayado\image.bin exists
# the image of the embedded writer
press frmHauptForm.imgBrennen
press frmCDBrennen.optDiscAtOnce
select frmCDBrennen.lstCDRecorder 2
writer fail unnoticed at 20 %
press frmCDBrennen.imgBrennen
answer 7
expect-box ~ "no coinciden con sus archivos"
expect-box ~ "1\. Azul oscuro$"
answer 7
expect-box ~ "otro CD del catálogo"
writer fail none
answer 6
answer 7
expect-box ~ "Finalizó la operación de grabado"
answer 7
answer 7
expect-window frmHauptForm
expect-file "C:\Vantora\Discos\Disco 001.cue" exists
expect-file "C:\Vantora\Discos\Disco 002.cue" exists
close
