# A take of three seconds. The sound at the input comes from elsewhere than the disk that fails.
makewave ${DISK}.wav 6 440
start
press frmHauptForm.imgLPAufnehmen
answer-all 7
linein play ${DISK}.wav
press frmAufnehmen.imgAufnehmen
writefile ${DISK} text ${FAULT}
choose C:\Vantora\Wavs\vals.wav
answer-all 7
wait 3000
answer-all 7
press frmAufnehmen.imgRecordStop
wait 2000
answer-all 7
