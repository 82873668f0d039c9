# The program's two working folders: selected by their buttons, typed, and refused.
home home
screen 800 600
setting Show_Start_Assistant 0
writefile C:\Discoteca\Vieja\leeme.txt text "hola"
makewave C:\img\Disco.wav 4 440
writefile C:\img\Disco.cue text "FILE ""Disco.wav"" WAVE"
start
press frmHauptForm.imgExtras
# a folder selected by the button is stored at once, even if the window is cancelled
press frmExtrasMenue.cmdWaveDirEdit
expect-window frmLoadSave
choose C:\Discoteca\Vieja\leeme.txt
expect frmExtrasMenue.txtWaveDir.Text == "C:\Discoteca\Vieja\"
press frmExtrasMenue.cmdTempDirEdit
choose cancel
key frmExtrasMenue Escape
close
start
press frmHauptForm.imgExtras
expect frmExtrasMenue.txtWaveDir.Text == "C:\Discoteca\Vieja\"
# refused: a folder that does not exist, and the tray of the embedded drive
press frmExtrasMenue.cmdTempDirEdit
type frmLoadSave.txtDateiName "C:\No existe"
press frmLoadSave.pbButton(1)
expect-box ~ "no existe"
answer 7
press frmExtrasMenue.cmdTempDirEdit
type frmLoadSave.txtDateiName "D:\Carpeta"
press frmLoadSave.pbButton(1)
expect-box ~ "este disco duro"
answer 7
type frmExtrasMenue.txtTempDir "C:\Tampoco existe"
press frmExtrasMenue.imgOK
expect-box == "Este directorio no existe. Seleccione otra."
answer 7
expect-window frmExtrasMenue
type frmExtrasMenue.txtTempDir "D:\"
press frmExtrasMenue.imgOK
expect-box ~ "directorio"
answer 7
type frmExtrasMenue.txtTempDir "C:\Discoteca"
press frmExtrasMenue.imgOK
expect-window frmHauptForm
press frmHauptForm.imgExtras
expect frmExtrasMenue.txtTempDir.Text == "C:\Discoteca"
key frmExtrasMenue Escape
