# Two songs are in the catalog.
makewave C:\m\uno.wav 3 300
makewave C:\m\dos.wav 4 400
start
press frmHauptForm.imgLiedImport
choose C:\m\uno.wav C:\m\dos.wav
key frmNeuerInterpret Return
key frmNeuerInterpret Return
expect frmHauptForm.lvwKatalog.Count == 2
