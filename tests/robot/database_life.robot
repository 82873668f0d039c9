# Two discs are burnt and enter the database. The user looks at them, searches and deletes, by mouse
# and by keyboard.
home home
screen 1024 768
setting Show_Start_Assistant 0
setting Show_TAO_Message 0
setting Auto_Database 1
makewave "C:\Música\Azul oscuro.wav" 4 330
makewave "C:\Música\Mar abierto.wav" 7 440
makewave "C:\Música\El faro.wav" 3 262
start
# no disc has been burnt yet
press frmHauptForm.imgDatenBank
expect-window frmDatenbank
expect frmDatenbank.lblVorhandeneCDNum.Caption == 0
expect frmDatenbank.lblVorhandeneTitelNum.Caption == 0
expect frmDatenbank.lstInterpreten.Count == 0
press frmDatenbank.imgLöschen
type frmDatenbank.txtSuchtext azul
key frmDatenbank Return
expect frmDatenbank.lstTitel.Count == 0
key frmDatenbank Escape
expect-window frmHauptForm
# the first disc has two tracks
press frmHauptForm.imgLiedImport
choose "C:\Música\Azul oscuro.wav" "C:\Música\Mar abierto.wav"
type frmNeuerInterpret.txtTitel "Azul oscuro"
type frmNeuerInterpret.txtInterpret "Las olas"
key frmNeuerInterpret Return
type frmNeuerInterpret.txtTitel "Mar abierto"
type frmNeuerInterpret.txtInterpret "Las olas"
key frmNeuerInterpret Return
doubleclick frmHauptForm.lblKatalogTitel
type frmNeuerInterpret.txtTitel "Verano"
type frmNeuerInterpret.txtInterpret "Varios"
key frmNeuerInterpret Return
press frmHauptForm.imgBrennen
press frmCDBrennen.imgBrennen
expect-box ~ "CD virgen"
answer 7
expect-box ~ "Finalizó la operación"
answer 7
expect-box ~ "otro CD"
answer 7
expect-window frmHauptForm
# the second disc has a third track and another title
press frmHauptForm.imgLiedImport
choose "C:\Música\El faro.wav"
type frmNeuerInterpret.txtTitel "El faro"
type frmNeuerInterpret.txtInterpret "Rosa de los vientos"
key frmNeuerInterpret Return
doubleclick frmHauptForm.lblKatalogTitel
type frmNeuerInterpret.txtTitel "Otoño"
type frmNeuerInterpret.txtInterpret "La costa"
key frmNeuerInterpret Return
press frmHauptForm.imgBrennen
press frmCDBrennen.imgBrennen
answer 7
answer 7
answer 7
expect-window frmHauptForm
# both discs are in the list, the first one with its tracks
press frmHauptForm.imgDatenBank
expect frmDatenbank.lblVorhandeneCDNum.Caption == 2
expect frmDatenbank.lblVorhandeneTitelNum.Caption == 5
expect frmDatenbank.lstInterpreten(1) == "Varios: Verano"
expect frmDatenbank.lstInterpreten(2) == "La costa: Otoño"
expect frmDatenbank.lstTitel.Count == 2
expect frmDatenbank.lstTitel(1) == "Las olas: Azul oscuro"
expect frmDatenbank.lblAnzahlTitelAktuelleCD.Caption == 2
select frmDatenbank.lstInterpreten 2
expect frmDatenbank.lstTitel.Count == 3
expect frmDatenbank.lblDauer.Caption == "00:04"
select frmDatenbank.lstTitel 2
expect frmDatenbank.lblDauer.Caption == "00:07"
shot pictures/frmDatenbank.png
# a search includes discs and tracks, and respects case
type frmDatenbank.txtSuchtext "faro"
press frmDatenbank.imgSuchen
expect frmDatenbank.lstInterpreten.Count == 1
expect frmDatenbank.lstInterpreten(1) == "La costa: Otoño"
press frmDatenbank.imgGesammteListe
expect frmDatenbank.lstInterpreten.Count == 2
press frmDatenbank.chkLiedTitel
type frmDatenbank.txtSuchtext "faro"
key frmDatenbank Return
expect frmDatenbank.lstInterpreten.Count == 0
expect frmDatenbank.lblDauer.Caption == ""
press frmDatenbank.imgGesammteListe
type frmDatenbank.txtSuchtext "Otoño"
key frmDatenbank Return
expect frmDatenbank.lstInterpreten.Count == 1
# the Delete key in the search box does not delete in the list
key frmDatenbank Delete
press frmDatenbank.imgGesammteListe
expect frmDatenbank.lstInterpreten.Count == 2
# keyboard only: from the search box to the list, down to the second disc, and delete it
type frmDatenbank.txtSuchtext "v"
key frmDatenbank Tab
key frmDatenbank Tab
key frmDatenbank Tab
key frmDatenbank Tab
key frmDatenbank Space
key frmDatenbank Tab
key frmDatenbank Down
expect frmDatenbank.lstTitel.Count == 3
key frmDatenbank Delete
expect frmDatenbank.lstInterpreten.Count == 1
expect frmDatenbank.lblVorhandeneTitelNum.Caption == 2
press frmDatenbank.imgSchliessen
# the deletion is permanent
press frmHauptForm.imgDatenBank
expect frmDatenbank.lstInterpreten.Count == 1
press frmDatenbank.imgLöschen
expect frmDatenbank.lstInterpreten.Count == 0
expect frmDatenbank.lblVorhandeneCDNum.Caption == 0
window close frmDatenbank
close
