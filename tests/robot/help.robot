# Help opens wherever a user may ask for it: by key, by button, in a dialog and for a message.
home home
makewave C:\m\a.wav 5 440
start
expect-window frmStartAssistent
key frmStartAssistent F1
expect-help frmStartAssistent
key frmStartAssistent Escape
press frmHauptForm.imgHelp
expect-help frmHauptForm
press frmHauptForm.imgPrintCover
press frmMBox.imgHelp
expect-help frmHauptForm
key frmMBox F1
expect-help frmHauptForm
answer 7
press frmHauptForm.imgLiedImport
key frmLoadSave F1
expect-help frmLoadSave
choose C:\m\a.wav
key frmNeuerInterpret F1
expect-help frmNeuerInterpret
key frmNeuerInterpret Return
press frmHauptForm.imgBrennen
key frmCDBrennen F1
expect-help frmCDBrennen
key frmCDBrennen Escape
press frmHauptForm.imgExtras
key frmExtrasMenue F1
expect-help frmExtrasMenue
key frmExtrasMenue Escape
close
