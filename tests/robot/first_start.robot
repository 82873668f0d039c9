# The first start in an empty home: defaults, folders, and the wizard, which stays off once it is
# switched off.
home home
screen 800 600
start
expect-window frmStartAssistent
expect frmStartAssistent.StartOptionen(0).Value == True
press frmStartAssistent.chkNichtMehrZeigen
press frmStartAssistent.imgAbbrechen
expect-window frmHauptForm
expect frmHauptForm.lblKatalogTitel.Caption == "Nuevo título"
expect frmHauptForm.lblRestzeitCD.Caption == "Quedan:80:00"
expect frmHauptForm.lblKatalogLaenge.Caption == "00:00:00"
# functions that need tracks say so
press frmHauptForm.imgPrintCover
expect-box == "Para imprimir una cubierta, primero debe abrir o crear un catálogo."
answer 7
press frmHauptForm.imgTitel
expect-box == "¡El catálogo no contiene ninguna pista audio (archivo .WAV)!"
answer 7
press frmHauptForm.imgBrennen
expect-box ~ "El catálogo no contiene pistas audio"
answer 7
press frmHauptForm.Logo
expect-window frmAbout
shot pictures/frmAbout.png
key frmAbout Escape
shot pictures/frmHauptForm_800.png
close
# the second start has no wizard and no sound card
sound off
start
expect-box ~ "ninguna tarjeta de sonido"
answer 7
expect-window frmHauptForm
# functions that need the card say so
press frmHauptForm.imgLPAufnehmen
expect-box ~ "ninguna tarjeta de sonido"
answer 7
press frmHauptForm.imgWaveEdit
expect-box ~ "ninguna tarjeta de sonido"
answer 7
close
# the screen is too small and has too few colours
screen 640 480
sound on
start
expect-box ~ "800x600"
answer 7
