# Pre-cut paper: cover and back on one sheet, and the label at the top or at the bottom.
home home
screen 800 600
setting Show_Start_Assistant 0
printer pdf out
printer paper Letter
printer margins 283 283
makewave C:\m\uno.wav 3 300
start
press frmHauptForm.imgLiedImport
choose C:\m\uno.wav
key frmNeuerInterpret Return
within 5000 expect frmHauptForm.lvwKatalog.Count == 1
press frmHauptForm.imgPrintCover
press frmPrintStart.imgReady
press frmPrint.imgControl(1)
press frmPrint.chkPaper(1)
shot pictures/frmPrint_papel.png
press frmPrint.imgPrintMe
print ok
expect-window frmPrint
# afterwards the window shows the back
expect frmPrint.picRotText(0).Visible == True
copy out/001.pdf C:\dos.pdf
press frmPrint.imgControl(2)
expect frmPrint.optLabelPos(1).Enabled == True
press frmPrint.imgPrintMe
print ok
press frmPrint.optLabelPos(1)
press frmPrint.imgPrintMe
print ok
expect-window frmPrint
copy out/003.pdf C:\abajo.pdf
press frmPrint.chkPaper(0)
expect frmPrint.optLabelPos(1).Enabled == False
window close
window close
expect-window frmHauptForm
close
