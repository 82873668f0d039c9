# A song is in the catalog.
makewave C:\m\uno.wav 3 300
start
press frmHauptForm.imgLiedImport
choose C:\m\uno.wav
key frmNeuerInterpret Return
expect frmHauptForm.lvwKatalog.Count == 1
