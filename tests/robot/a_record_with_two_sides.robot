# A whole record: its sides are cut into takes at the pauses, the user turns the record over when
# asked, and all takes are in the catalog. The times allow for a busy machine.
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
# after two seconds below the level the take ends, and the recorder waits for sound
within 30000 expect frmAufnehmen.imgAbbrechen.Enabled == True
expect-file C:\Vantora\Wavs\lp00.wav exists
linein play C:\m\dos.wav
within 10000 expect frmAufnehmen.lvwAufnehmen.Count == 2
within 30000 expect frmAufnehmen.imgAbbrechen.Enabled == True
# the first side has ended
wait 20000
expect-box ~ "primera cara"
answer 7
expect-window frmAufnehmen
linein play C:\m\tres.wav
within 10000 expect frmAufnehmen.lvwAufnehmen.Count == 3
within 30000 expect frmAufnehmen.imgAbbrechen.Enabled == True
# the recorder asks only once
wait 30000
expect-window frmAufnehmen
press frmAufnehmen.imgRecordStop
press frmAufnehmen.imgOkay
expect-window frmHauptForm
expect frmHauptForm.lvwKatalog.Count == 3
expect frmHauptForm.lvwKatalog(1,2) == "Nuevo título"
expect frmHauptForm.lvwKatalog(3,3) == "Nuevo intérprete"
close
