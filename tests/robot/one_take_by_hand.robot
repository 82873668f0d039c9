# A single take: a name, the record button, the stop button; then the take is in the catalog.
home home
screen 1024 768
setting Show_Start_Assistant 0
mixer in Mic 16384
mixer in Line 49152 select
makewave C:\m\disco.wav 20 440
start
press frmHauptForm.imgLPAufnehmen
expect-box ~ "varias pistas"
answer 7
expect-window frmAufnehmen
expect frmAufnehmen.cbxMultiTrack.Value == 0
# the lines of the card; the recording line is selected
expect frmAufnehmen.optInput(1).Value == True
expect frmAufnehmen.optInput(2).Visible == False
expect frmAufnehmen.imgSliderKnopf(0) == 75
press frmAufnehmen.optInput(0)
expect-mixer Mic select == True
expect frmAufnehmen.imgSliderKnopf(0) == 25
press frmAufnehmen.optInput(1)
# the level meters move before a recording
linein play C:\m\disco.wav
within 5000 expect frmAufnehmen.Level1.PeakLeft > 10000
expect frmAufnehmen.lvwAufnehmen.Count == 0
# a name must be typed
press frmAufnehmen.imgAufnehmen
press frmLoadSave.pbButton(1)
expect-window frmAufnehmen
press frmAufnehmen.imgAufnehmen
choose C:\Vantora\Wavs\vals.wav
within 10000 expect frmAufnehmen.imgOkay.Enabled == False
expect frmAufnehmen.lvwAufnehmen.Count == 1
expect frmAufnehmen.lvwAufnehmen(1,0) == "01"
expect frmAufnehmen.lblStatusanzeige ~ "vals"
wait 6000
expect frmAufnehmen.lblRecZeit ~ "^00:00:0"
press frmAufnehmen.imgRecordStop
within 10000 expect frmAufnehmen.imgOkay.Enabled == True
expect-file C:\Vantora\Wavs\vals.wav exists
# the record button never overwrites a file that has been recorded
press frmAufnehmen.imgAufnehmen
choose cancel
expect frmAufnehmen.lvwAufnehmen.Count == 1
select frmAufnehmen.lvwAufnehmen 1
doubleclick frmAufnehmen.lvwAufnehmen
type frmNeuerInterpret.txtTitel "Vals de invierno"
type frmNeuerInterpret.txtInterpret "Orquesta"
key frmNeuerInterpret Return
expect frmAufnehmen.lvwAufnehmen(1,1) == "Vals de invierno"
press frmAufnehmen.imgOkay
expect-window frmHauptForm
expect frmHauptForm.lvwKatalog.Count == 1
expect frmHauptForm.lvwKatalog(1,2) == "Vals de invierno"
expect frmHauptForm.lvwKatalog(1,3) == "Orquesta"
close
