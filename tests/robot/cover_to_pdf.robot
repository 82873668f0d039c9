# A cover from the beginning to the PDF: texts, font, colours, a picture, and a print of each side.
home home
screen 1024 768
setting Show_Start_Assistant 0
printer pdf out
printer paper A4
makewave C:\m\uno.wav 3 300
makewave C:\m\dos.wav 4 400
makewave C:\m\tres.wav 5 500
makepicture C:\Vantora\Pictures\mar.bmp 900 600
writefile C:\Vantora\Pictures\roto.jpg text "no picture"
start
# there is nothing to print yet
press frmHauptForm.imgPrintCover
expect-box ~ "primero debe abrir o crear un catálogo"
answer 7
press frmHauptForm.imgLiedImport
choose C:\m\uno.wav C:\m\dos.wav C:\m\tres.wav
key frmNeuerInterpret Return
key frmNeuerInterpret Return
key frmNeuerInterpret Return
within 5000 expect frmHauptForm.lvwKatalog.Count == 3
press frmHauptForm.imgPrintCover
expect-window frmPrintStart
expect frmPrintStart.txtPrev.Text ~ "^1   Nuevo título   Nuevo intérprete"
# a cancelled dialog changes nothing
press frmPrintStart.imgSchrift
font cancel
press frmPrintStart.imgColor(0)
colour cancel
type frmPrintStart.txtTitel(1) "Olas del norte"
press frmPrintStart.imgSchrift
font "Liberation Sans" 11 bold
press frmPrintStart.imgColor(0)
colour 20,30,120
press frmPrintStart.imgColor(1)
colour 255,250,220
shot pictures/frmPrintStart.png
press frmPrintStart.imgReady
expect-window frmPrint
expect frmPrint.lblBeschriftung(2).Caption ~ "^3   "
expect frmPrint.lblBeschriftung(3).Visible == False
expect frmPrint.lblCDTitel.Caption == "Olas del norte"
shot pictures/frmPrint_dorso.png
press frmPrint.imgLoadPic
choose cancel
press frmPrint.imgPrintMe
print cancel
press frmPrint.imgPrintMe
print ok
expect-window frmPrint
copy out/001.pdf C:\dorso.pdf
expect-file C:\dorso.pdf exists
press frmPrint.imgControl(1)
expect frmPrint.optLabelPos(0).Enabled == False
press frmPrint.imgLoadPic
choose C:\Vantora\Pictures\mar.bmp
expect-window frmPrint
shot pictures/frmPrint_cubierta.png
press frmPrint.imgPrintMe
print ok
press frmPrint.imgControl(2)
shot pictures/frmPrint_etiqueta.png
press frmPrint.imgPrintMe
print ok
expect-window frmPrint
copy out/003.pdf C:\etiqueta.pdf
# a file that is not a picture is reported, and the picture stays until the user agrees
press frmPrint.imgControl(1)
press frmPrint.imgLoadPic
choose C:\Vantora\Pictures\roto.jpg
expect-box ~ "roto.jpg"
answer 7
press frmPrint.imgClearPic
expect-box ~ "suprimir la imagen"
answer 7
expect frmPrint.Lead2.Drawn == 2
press frmPrint.imgClearPic
answer 6
expect frmPrint.Lead2.Drawn == 1
# back to the texts, to the sides again, and to the catalog
press frmPrint.imgBack
expect-window frmPrintStart
press frmPrintStart.imgReady
press frmPrint.imgAbbrechen
expect-window frmHauptForm
close
