# A simulation leaves no disc; two copies make two discs; Disc At Once restores the files.
home home
screen 800 600
setting Show_Start_Assistant 0
setting Show_TAO_Message 0
makewave C:\m\uno.wav 3 300
makewave C:\m\dos.wav 4 400
start
press frmHauptForm.imgLiedImport
choose C:\m\uno.wav C:\m\dos.wav
key frmNeuerInterpret Return
key frmNeuerInterpret Return
select frmHauptForm.lvwKatalog 1
press frmHauptForm.imgTitelBearb
select frmNeuerInterpret.cmbPause 3
# what is left blank keeps its text
type frmNeuerInterpret.txtTitel ""
type frmNeuerInterpret.txtInterpret "Otra voz"
key frmNeuerInterpret Return
expect frmHauptForm.lvwKatalog(1,2) == "Nuevo título"
expect frmHauptForm.lvwKatalog(1,3) == "Otra voz"
press frmHauptForm.imgBrennen
press frmCDBrennen.chkSimulation
type frmCDBrennen.txtKopienAnzahl 5
press frmCDBrennen.imgBrennen
answer 7
expect-box ~ "Finalizó la simulación"
answer 7
expect frmCDBrennen.txtKopienAnzahl.Text == 1
expect-file "C:\Vantora\Discos\Disco 001.bin" missing
press frmCDBrennen.chkSimulation
press frmCDBrennen.optDiscAtOnce
type frmCDBrennen.txtKopienAnzahl 2
press frmCDBrennen.imgBrennen
answer 7
expect-box ~ "Finalizó"
answer 7
expect-box ~ "la copia 2 /  2 del CD"
answer 7
answer 7
answer 7
expect-box ~ "otro CD"
answer 7
expect-window frmHauptForm
# 3 seconds, a pause of 2, and 4 seconds: 675 sectors
expect-file "C:\Vantora\Discos\Disco 002.bin" size 1587600
# 3 and 4 seconds, 44 bytes of header: the pause has been removed from the first file
expect-file C:\m\uno.wav size 529244
expect-file C:\m\dos.wav size 705644
close
