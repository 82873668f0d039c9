# From music files to a CD with its printed cover, as a new user does it; docs/first-cd.md shows the
# pictures. `remake` plays it.
home home
screen 1024 768
clock 2026-11-24 10:00:00
printer pdf printed
copy song.wav "C:\Música\Azul oscuro.wav"
makewave "C:\Música\Bajo la lluvia.wav" 187 220
makewave "C:\Música\El faro.wav" 243 440
makemp3 "C:\Música\Mar abierto.mp3" 200 294
copy sea.bmp C:\Vantora\Pictures\mar.bmp
start
# the wizard leads to the files
press frmStartAssistent.StartOptionen(5)
shot first_cd_1.png
press frmStartAssistent.imgOK
type frmLoadSave.txtDateiName C:\Música
press frmLoadSave.pbButton(1)
select frmLoadSave.lstDatei 1 2 3 4
within 60000 expect frmLoadSave.lblAuswahl.Caption ~ "en total"
shot first_cd_2.png
press frmLoadSave.pbButton(1)
type frmNeuerInterpret.txtTitel "Azul oscuro"
type frmNeuerInterpret.txtInterpret "Las olas"
shot first_cd_3.png
key frmNeuerInterpret Return
type frmNeuerInterpret.txtTitel "Bajo la lluvia"
type frmNeuerInterpret.txtInterpret "Las olas"
key frmNeuerInterpret Return
type frmNeuerInterpret.txtTitel "El faro"
type frmNeuerInterpret.txtInterpret "Rosa de los vientos"
key frmNeuerInterpret Return
type frmNeuerInterpret.txtTitel "Mar abierto"
type frmNeuerInterpret.txtInterpret "Las olas"
key frmNeuerInterpret Return
expect frmHauptForm.lvwKatalog.Count == 4
# name the disc, and keep the catalog
doubleclick frmHauptForm.lblKatalogTitel
type frmNeuerInterpret.txtTitel "Verano"
type frmNeuerInterpret.txtInterpret "Varios"
key frmNeuerInterpret Return
press frmHauptForm.imgKatalogSpeichern
choose C:\Vantora\Catálogo\verano.vtr
select frmHauptForm.lvwKatalog 1
press frmHauptForm.imgAbspielen
wait 900
shot first_cd_4.png
press frmHauptForm.imgStop
# burn
press frmHauptForm.imgBrennen
shot first_cd_5.png
writer pace 16
after 22000 shot first_cd_6.png
press frmCDBrennen.imgBrennen
answer 6
answer 7
answer 7
answer 7
expect-window frmHauptForm
expect-file "C:\Vantora\Discos\Disco 001.cue" exists
# the cover
press frmHauptForm.imgPrintCover
type frmPrintStart.txtTitel(0) "Verano"
type frmPrintStart.txtTitel(1) "Varios"
press frmPrintStart.imgReady
press frmPrint.imgControl(1)
press frmPrint.imgLoadPic
choose C:\Vantora\Pictures\mar.bmp
expect-window frmPrint
# title and performer stand on the sun, the tracks on the page inside
pull frmPrint.lblInterPret 4755 2595
pull frmPrint.lblCDTitel 4830 3330
pull frmPrint.lblBeschriftung(0) -4800 1800
pull frmPrint.lblBeschriftung(1) -4905 1905
pull frmPrint.lblBeschriftung(2) -5115 2070
pull frmPrint.lblBeschriftung(3) -4800 2175
shot first_cd_7.png
press frmPrint.imgPrintMe
print ok
press frmPrint.imgControl(0)
press frmPrint.imgPrintMe
print ok
press frmPrint.imgAbbrechen
close
