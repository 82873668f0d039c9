# A disc made with the keys of the main window.
home home
screen 800 600
clock 2026-11-24 10:00
setting Show_Start_Assistant 0
makewave C:\m\uno.wav 4 300
makewave C:\m\dos.wav 5 400
makewave C:\m\tres.wav 6 500
start
key frmHauptForm Ctrl+I
choose C:\m\uno.wav C:\m\dos.wav C:\m\tres.wav
expect frmNeuerInterpret.lblDatei.Caption == "dos.wav"
type frmNeuerInterpret.txtTitel dos
key frmNeuerInterpret Return
expect frmNeuerInterpret.lblDatei.Caption == "tres.wav"
type frmNeuerInterpret.txtTitel tres
key frmNeuerInterpret Return
type frmNeuerInterpret.txtTitel uno
key frmNeuerInterpret Return
within 5000 expect frmHauptForm.lvwKatalog.Count == 3
# the order of the tracks
select frmHauptForm.lvwKatalog 1
key frmHauptForm Alt+Down
key frmHauptForm Alt+Down
expect frmHauptForm.lvwKatalog(3,2) == "dos"
expect frmHauptForm.lvwKatalog(3).Selected == True
key frmHauptForm Alt+Up
expect frmHauptForm.lvwKatalog(2,2) == "dos"
key frmHauptForm Ctrl+Z
expect frmHauptForm.lvwKatalog(3,2) == "dos"
# a key that is held to the end of the list loses no undo
key frmHauptForm Alt+Down
expect frmHauptForm.lvwKatalog(2,2) == "dos"
key frmHauptForm Alt+Down
key frmHauptForm Ctrl+Z
expect frmHauptForm.lvwKatalog(3,2) == "dos"
select frmHauptForm.lvwKatalog 2
key frmHauptForm F2
type frmNeuerInterpret.txtTitel "La primera"
key frmNeuerInterpret Return
# listening, and the editor
select frmHauptForm.lvwKatalog 1
key frmHauptForm Space
within 2000 expect frmHauptForm.Level.Active == True
key frmHauptForm Space
within 2000 expect frmHauptForm.Level.Active == False
key frmHauptForm Return
expect-window frmWaveEditor
press frmWaveEditor.imgZurück
expect-window frmHauptForm
key frmHauptForm Ctrl+S
choose C:\Vantora\Catálogo\teclas.vtr
key frmHauptForm Ctrl+N
expect frmHauptForm.lvwKatalog.Count == 0
key frmHauptForm Ctrl+O
choose C:\Vantora\Catálogo\teclas.vtr
expect frmHauptForm.lvwKatalog.Count == 3
expect frmHauptForm.lvwKatalog(2,2) == "La primera"
key frmHauptForm Ctrl+B
expect-window frmCDBrennen
key frmCDBrennen Escape
expect-window frmHauptForm
# on a button, the keys of the list press the button
key frmHauptForm Tab
key frmHauptForm Space
within 2000 expect frmHauptForm.Level.Active == True
key frmHauptForm Tab
key frmHauptForm Return
within 2000 expect frmHauptForm.Level.Active == False
close
