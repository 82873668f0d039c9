# Several short takes in a row. Those under two seconds do not enter the catalog, each with a
# message, and do not affect the others. A file that existed before is skipped.
home home
screen 1024 768
setting Show_Start_Assistant 0
setting MinPauseLength 1
makewave C:\m\corto.wav 0.5 600
makewave C:\m\largo.wav 4 500
makewave C:\Vantora\Wavs\c02.wav 3 220
start
press frmHauptForm.imgLPAufnehmen
expect-box ~ "varias pistas"
answer 6
choose C:\Vantora\Wavs\c.wav
expect-window frmAufnehmen
expect frmAufnehmen.txtMinPause == "1"
press frmAufnehmen.imgAufnehmen
linein play C:\m\largo.wav
within 30000 expect frmAufnehmen.imgOkay.Enabled == True
linein play C:\m\corto.wav
within 10000 expect frmAufnehmen.lvwAufnehmen.Count == 2
within 30000 expect frmAufnehmen.imgOkay.Enabled == True
linein play C:\m\largo.wav
within 10000 expect frmAufnehmen.lvwAufnehmen.Count == 3
within 30000 expect frmAufnehmen.imgOkay.Enabled == True
linein overrun 120
linein play C:\m\corto.wav
within 10000 expect frmAufnehmen.lvwAufnehmen.Count == 4
within 30000 expect frmAufnehmen.imgOkay.Enabled == True
expect-file C:\Vantora\Wavs\c02.wav size 529244
expect-file C:\Vantora\Wavs\c03.wav exists
expect-file C:\Vantora\Wavs\c04.wav exists
# the other side is asked for only when a record is copied
wait 20000
press frmAufnehmen.imgRecordStop
expect-box ~ "120 ms"
answer 7
press frmAufnehmen.imgOkay
expect-box ~ "La grabación N° 2 del archivo c01.wav"
answer 7
expect-box ~ "La grabación N° 4 del archivo c04.wav"
answer 7
expect-window frmHauptForm
expect frmHauptForm.lvwKatalog.Count == 2
close
