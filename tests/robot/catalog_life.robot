# Creates, opens, appends, moves, deletes, undoes and saves; the next start loads the catalog again.
home home
screen 1024 768
setting Show_Start_Assistant 0
setting Last_Catalog_Load 1
makewave C:\m\uno.wav 3 300
makewave C:\m\dos.wav 4 400
makewave C:\m\tres.wav 5 500
start
press frmHauptForm.imgKatalogSpeichern
expect-box == "¡No ha abierto ningún catálogo!"
answer 7
press frmHauptForm.imgLiedImport
choose C:\m\uno.wav C:\m\dos.wav C:\m\tres.wav
key frmNeuerInterpret Return
key frmNeuerInterpret Return
key frmNeuerInterpret Return
expect frmHauptForm.lvwKatalog.Count == 3
expect frmHauptForm.lblKatalogLaenge.Caption == "00:00:12"
select frmHauptForm.lvwKatalog 1
press frmHauptForm.imgMove(1)
expect frmHauptForm.lvwKatalog(2,7) ~ "dos.wav|tres.wav"
# buttons do not take the focus, so the Delete key still goes to the list; Escape means no to a
# question, and Return means yes
key frmHauptForm Delete
expect-box ~ "eliminar el título"
expect frmMBox.cbxNotShow.Visible == False
key frmMBox Escape
expect frmHauptForm.lvwKatalog.Count == 3
key frmHauptForm Delete
key frmMBox Return
expect frmHauptForm.lvwKatalog.Count == 2
press frmHauptForm.imgDeleteTitel
expect frmHauptForm.lvwKatalog.Count == 3
# the undo has one step
press frmHauptForm.imgDeleteTitel
expect frmHauptForm.lvwKatalog.Count == 3
press frmHauptForm.imgKatalogSpeichern
choose C:\Vantora\Catálogo\vida.vtr
press frmHauptForm.imgKatalogAnhaengen
choose C:\Vantora\Catálogo\vida.vtr
expect frmHauptForm.lvwKatalog.Count == 6
press frmHauptForm.imgNeuerKatalog
expect-box == "¿Desea guardar el catálogo modificado?"
answer 7
expect frmHauptForm.lvwKatalog.Count == 0
press frmHauptForm.imgLiedKatalog
choose C:\Vantora\Catálogo\vida.vtr
expect-window frmLiedAusKatalog
select frmLiedAusKatalog.lstLiedAusKatalog 1 3
shot pictures/frmLiedAusKatalog.png
press frmLiedAusKatalog.imgControl(0)
expect frmHauptForm.lvwKatalog.Count == 2
press frmHauptForm.imgKatalogÖffnen
choose C:\Vantora\Catálogo\vida.vtr
expect-box == "¿Desea guardar el catálogo modificado?"
# mistakes do not lose the catalog: OK without a name, and a name that exists
answer 6
press frmLoadSave.pbButton(1)
expect-box == "Nombre de archivo incorrecto"
answer 7
choose C:\Vantora\Catálogo\vida.vtr
expect-box ~ "del mismo nombre"
answer 7
choose C:\Vantora\Catálogo\parte.vtr
expect-file C:\Vantora\Catálogo\parte.vtr exists
expect frmHauptForm.lblKatalogDatei.Caption == C:\Vantora\Catálogo\vida.vtr
expect frmHauptForm.lvwKatalog.Count == 3
expect frmHauptForm.lblRestzeitCD.Caption == "Quedan:79:48"
close
start
expect frmHauptForm.lvwKatalog.Count == 3
expect frmHauptForm.lblKatalogDatei.Caption == C:\Vantora\Catálogo\vida.vtr
# a file of another kind is reported and changes nothing
writefile C:\roto.vtr text "esto no es un catálogo"
press frmHauptForm.imgKatalogÖffnen
choose C:\roto.vtr
expect-box ~ "Error:"
answer 7
expect frmHauptForm.lvwKatalog.Count == 3
expect frmHauptForm.lblKatalogDatei.Caption == C:\Vantora\Catálogo\vida.vtr
press frmHauptForm.imgKatalogÖffnen
choose cancel
close
