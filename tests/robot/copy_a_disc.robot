# Copies a whole audio CD twice in a row; the copy of the copy equals the disc.
home home
screen 1024 768
setting Show_Start_Assistant 0
setting Auto_Database 1
makewave C:\Música\azul.wav 6 330
makewave C:\Música\faro.wav 9 440
start
press frmHauptForm.imgLiedImport
choose C:\Música\azul.wav C:\Música\faro.wav
key frmNeuerInterpret Return
key frmNeuerInterpret Return
doubleclick frmHauptForm.lblKatalogTitel
type frmNeuerInterpret.txtTitel "Original"
key frmNeuerInterpret Return
press frmHauptForm.imgBrennen
press frmCDBrennen.optDiscAtOnce
press frmCDBrennen.imgBrennen
answer 7
answer 7
answer 7
expect-file "C:\Vantora\Discos\Disco 001.bin" sha256 0651038a9f74aa0b03704613d4d33987520c0f8b744b9466e1aa0f47ba10009c
# nobody has laid a disc in
press frmHauptForm.imgCDKopieren
expect-box ~ "desea guardar|guardar"
answer 7
expect-box ~ "Introduzca un CD audio"
answer 6
expect-box ~ "No hay ningún CD audio"
answer 6
expect-box ~ "Introduzca un CD audio"
disc insert "C:\Vantora\Discos\Disco 001.cue"
answer 6
expect-box ~ "Reproducción correcta"
answer 7
expect-box ~ "modo DAO"
answer 6
expect-window frmCDBrennen
expect frmCDBrennen.optDiscAtOnce.Value == True
expect-file C:\WINDOWS\TEMP\Pista01.wav exists
expect frmHauptForm.lvwKatalog.Count == 2
press frmCDBrennen.imgBrennen
answer 7
expect-box ~ "Finalizó la operación de grabado"
answer 7
answer 7
expect-window frmHauptForm
# the database has the disc, so the temporary waves are gone
expect-file C:\WINDOWS\TEMP\Pista01.wav missing
expect-file "C:\Vantora\Discos\Disco 002.bin" sha256 0651038a9f74aa0b03704613d4d33987520c0f8b744b9466e1aa0f47ba10009c
# the second copy is left before its burn, and the third is told so
disc eject
disc insert "C:\Vantora\Discos\Disco 002.cue"
press frmHauptForm.imgCDKopieren
expect-box ~ "guardar"
answer 7
answer 6
answer 7
answer 7
expect-window frmCDBrennen
key frmCDBrennen Escape
expect-window frmHauptForm
expect-file C:\WINDOWS\TEMP\Pista02.wav exists
press frmHauptForm.imgCDKopieren
expect-box ~ "archivos del proceso anterior"
answer 7
expect-window frmHauptForm
close
