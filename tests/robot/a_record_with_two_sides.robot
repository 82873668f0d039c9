# A whole record: the sides are cut into takes by their pauses, the record is turned over when that
# is asked for, and all takes are in the catalog. The times leave room for a busy machine.
home home
screen 800 600
setting Show_Start_Assistant 0
makewave C:\m\uno.wav 8 330
makewave C:\m\dos.wav 7 440
makewave C:\m\tres.wav 9 550
start
press frmHauptForm.imgLPKopieren
choose C:\Vantora\Wavs\lp.wav
expect-window frmAufnehmen
expect frmAufnehmen.cbxMultiTrack.Value == 1
expect frmAufnehmen.Level1.Mark == 1000
press frmAufnehmen.imgAufnehmen
expect frmAufnehmen.imgAbbrechen.Enabled == False
expect frmAufnehmen.lvwAufnehmen.Count == 1
linein play C:\m\uno.wav
# the level has fallen for two seconds: the take ends, and the recorder waits for sound
within 30000 expect frmAufnehmen.imgAbbrechen.Enabled == True
expect-file C:\Vantora\Wavs\lp00.wav exists
linein play C:\m\dos.wav
within 10000 expect frmAufnehmen.lvwAufnehmen.Count == 2
within 30000 expect frmAufnehmen.imgAbbrechen.Enabled == True
# the end of the side
wait 20000
expect-box ~ "primera cara"
answer 7
expect-window frmAufnehmen
linein play C:\m\tres.wav
within 10000 expect frmAufnehmen.lvwAufnehmen.Count == 3
within 30000 expect frmAufnehmen.imgAbbrechen.Enabled == True
# it is asked for once
wait 30000
expect-window frmAufnehmen
press frmAufnehmen.imgRecordStop
press frmAufnehmen.imgOkay
expect-window frmHauptForm
expect frmHauptForm.lvwKatalog.Count == 3
expect frmHauptForm.lvwKatalog(1,2) == "Nuevo título"
expect frmHauptForm.lvwKatalog(3,3) == "Nuevo intérprete"
close
