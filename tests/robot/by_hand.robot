# Files dropped from outside, the list's menu and keys, the close button, a disc in the drive.
home home
screen 1024 768
clock 2026-12-31 23:50
setting Show_Start_Assistant 0
makewave C:\m\uno.wav 3 300
makewave C:\m\dos.wav 4 400
start
# files dropped on the list do not enter the catalog
drop frmHauptForm.lvwKatalog C:\m\uno.wav C:\m\dos.wav
expect frmHauptForm.lvwKatalog.Count == 0
press frmHauptForm.imgLiedImport
choose C:\m\uno.wav C:\m\dos.wav
key frmNeuerInterpret Return
key frmNeuerInterpret Return
within 5000 expect frmHauptForm.lvwKatalog.Count == 2
select frmHauptForm.lvwKatalog 1
expect frmHauptForm.lvwKatalog(1).Selected == True
expect frmHauptForm.lvwKatalog(2).Selected == False
rightclick frmHauptForm.lvwKatalog
shot pictures/menu.png
menu mnuDelete
expect-box ~ "eliminar el título"
window close
expect frmHauptForm.lvwKatalog.Count == 2
select frmHauptForm.lvwKatalog 2
key frmHauptForm Up
expect frmHauptForm.lvwKatalog(1).Selected == True
key frmHauptForm Ctrl+A
expect frmHauptForm.lvwKatalog.SelCount == 2
select frmHauptForm.lvwKatalog
expect frmHauptForm.lvwKatalog.SelCount == 0
key frmHauptForm F12
window close frmHauptForm
expect-box ~ "guardar el catálogo"
answer 7
answer 7
press frmHauptForm.imgBrennen
press frmCDBrennen.imgBrennen
expect-box ~ "modo TAO"
press frmMBox.cbxNotShow
answer 6
answer 7
expect-box ~ "Finalizó"
answer 7
answer 7
expect-file "C:\Vantora\Discos\Disco 001.cue" exists
disc insert "C:\Vantora\Discos\Disco 001.cue"
expect-file "C:\Vantora\Bandeja\Disco 001.bin" exists
disc eject
expect-file "C:\Vantora\Bandeja\Disco 001.bin" missing
close
