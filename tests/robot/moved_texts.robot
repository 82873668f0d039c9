# Texts of a cover are selected and moved, by mouse and by keyboard. Each side keeps its own
# positions.
home home
screen 1024 768
setting Show_Start_Assistant 0
printer pdf out
makewave C:\m\uno.wav 3 300
makewave C:\m\dos.wav 4 400
start
press frmHauptForm.imgLiedImport
choose C:\m\uno.wav C:\m\dos.wav
key frmNeuerInterpret Return
key frmNeuerInterpret Return
within 5000 expect frmHauptForm.lvwKatalog.Count == 2
press frmHauptForm.imgPrintCover
press frmPrintStart.imgReady
press frmPrint.imgControl(2)
# without a selected text the arrow keys move nothing
key frmPrint Right
expect frmPrint.lblBeschriftung(1).AccessibleName ~ "a 11 mm del borde izquierdo y a 15 mm"
press frmPrint.lblBeschriftung(1) shift
expect frmPrint.lblBeschriftung(1).Tag == 1
expect frmPrint.Text1.Text ~ "seleccionado"
key frmPrint Right
key frmPrint Down
expect frmPrint.lblBeschriftung(1).AccessibleName ~ "a 12 mm del borde izquierdo y a 17 mm"
press frmPrint.lblBeschriftung(1) shift
expect frmPrint.lblBeschriftung(1).Tag == 0
expect frmPrint.Text1.Text ~ "^Ning"
key frmPrint Ctrl+A
expect frmPrint.Text1.Text ~ "^4 "
shot pictures/frmPrint_seleccion.png
key frmPrint Up
expect frmPrint.lblBeschriftung(0).AccessibleName ~ "a 11 mm del borde izquierdo y a 10 mm"
press frmPrint.Lead2 950
expect frmPrint.lblBeschriftung(0).Tag == 0
# by mouse: far to the right and down, then to the edge
pull frmPrint.lblBeschriftung(0) 3000 4000
expect frmPrint.lblBeschriftung(0).Top > 3500
pull frmPrint.lblBeschriftung(0) -9000 0
expect frmPrint.lblBeschriftung(0).Left == 0
pull frmPrint.lblCDTitel 1500 3000
shot pictures/frmPrint_movido.png
# each side has its own positions
press frmPrint.imgControl(0)
expect frmPrint.lblBeschriftung(0).AccessibleName ~ "a 11 mm del borde izquierdo y a 11 mm"
press frmPrint.imgControl(2)
expect frmPrint.lblBeschriftung(0).Left == 0
# texts keep their positions when their words change
press frmPrint.imgBack
press frmPrintStart.imgReady
expect frmPrint.lblBeschriftung(0).Left == 0
key frmPrint Escape
expect-window frmPrintStart
key frmPrintStart Escape
expect-window frmHauptForm
close
