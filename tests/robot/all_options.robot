# Changes every option, checks them after a restart and changes them back. Cancelled changes have no
# effect.
home home
screen 1024 768
setting Show_Start_Assistant 0
makewave "C:\Música\Azul oscuro.wav" 4 330
start
press frmHauptForm.imgExtras
expect-window frmExtrasMenue
expect frmExtrasMenue.optCDGroesse80.Value == True
expect frmExtrasMenue.chkHintergrundBild.Value == 1
expect frmExtrasMenue.chk3DAnalyse.Value == 0
expect frmExtrasMenue.txtUndoMB.Text == 70
expect frmExtrasMenue.lblBrennvorgaenge.Caption == "Operaciones: 0"
expect frmExtrasMenue.lblPlatzZahl(0).Caption ~ "^[0-9]+(,[0-9]{3})*\.[0-9]{2} (bytes|Kb|Mb|Gb)$"
expect frmExtrasMenue.lblDauer(1).Caption ~ "^Duración de la grabación:  = [0-9]{2,}:[0-5][0-9]:[0-5][0-9]$"
expect frmExtrasMenue.lblAspiVersion(0).Caption ~ "^wnaspi32.dll: [0-9]+\.[0-9]+"
press frmExtrasMenue.cmdShowOldLog
expect-box ~ "ningún protocolo"
answer 7
press frmExtrasMenue.optCDGroesse74
press frmExtrasMenue.chk3DAnalyse
press frmExtrasMenue.chkHintergrundBild
expect frmHauptForm.Picture == ""
press frmExtrasMenue.chkStartAssistentZeigen
press frmExtrasMenue.cbxLastCatLoad
press frmExtrasMenue.cbxFertigCDinDB
press frmExtrasMenue.cbxCopySaveDoc
press frmExtrasMenue.chkUndo
type frmExtrasMenue.txtUndoMB 120
press frmExtrasMenue.cCDDBaktiv
type frmExtrasMenue.tProxyServer proxy.ejemplo.es
type frmExtrasMenue.tProxyPort 3128
select frmExtrasMenue.cmbWriteSpeed 3
# the two ways to find a title exclude each other
press frmExtrasMenue.cbxKatalogCheck
press frmExtrasMenue.cbxAskTrackInfo
expect-box == "Sólo puede seleccionar una opción. Para más información consulte el manual."
answer 7
expect frmExtrasMenue.cbxAskTrackInfo.Value == 0
expect frmExtrasMenue.cbxKatalogCheck.Value == 1
press frmExtrasMenue.imgOK
expect-window frmHauptForm
close
start
# the wizard is on now, and begins what was chosen; it is switched off again below
press frmStartAssistent.StartOptionen(3)
press frmStartAssistent.imgOK
expect-window frmLoadSave
choose cancel
press frmHauptForm.imgExtras
expect frmExtrasMenue.optCDGroesse74.Value == True
expect frmExtrasMenue.chk3DAnalyse.Value == 1
expect frmExtrasMenue.chkHintergrundBild.Value == 0
expect frmExtrasMenue.cbxLastCatLoad.Value == 1
expect frmExtrasMenue.cbxFertigCDinDB.Value == 0
expect frmExtrasMenue.cbxCopySaveDoc.Value == 0
expect frmExtrasMenue.chkUndo.Value == 0
expect frmExtrasMenue.txtUndoMB.Text == 120
expect frmExtrasMenue.cCDDBaktiv.Value == 1
expect frmExtrasMenue.tProxyServer.Text == proxy.ejemplo.es
expect frmExtrasMenue.tProxyPort.Text == 3128
expect frmExtrasMenue.cmbWriteSpeed.Text == 4
expect frmExtrasMenue.cbxKatalogCheck.Value == 1
# a cancelled change has no effect
press frmExtrasMenue.chkHintergrundBild
expect frmHauptForm.Picture == PICBACK_1000
press frmExtrasMenue.optCDGroesse80
type frmExtrasMenue.txtUndoMB 9
press frmExtrasMenue.imgAbbrechen
expect frmHauptForm.Picture == ""
press frmHauptForm.imgExtras
expect frmExtrasMenue.optCDGroesse74.Value == True
expect frmExtrasMenue.txtUndoMB.Text == 120
# changes the options back, then selects the other way to find a title and the user's own background
# picture
press frmExtrasMenue.cbxKatalogCheck
press frmExtrasMenue.cbxAskTrackInfo
press frmExtrasMenue.optCDGroesse80
press frmExtrasMenue.chkUndo
press frmExtrasMenue.cbxCopySaveDoc
writefile C:\Vantora\BackPic.jpg text "no picture"
press frmExtrasMenue.chkHintergrundBild
expect frmHauptForm.Picture ~ "/Vantora/BackPic.jpg$"
press frmExtrasMenue.imgOK
expect frmHauptForm.Picture ~ "/Vantora/BackPic.jpg$"
press frmHauptForm.imgExtras
expect frmExtrasMenue.cbxAskTrackInfo.Value == 1
expect frmExtrasMenue.cbxKatalogCheck.Value == 0
expect frmExtrasMenue.optCDGroesse80.Value == True
key frmExtrasMenue Escape
expect-window frmHauptForm
