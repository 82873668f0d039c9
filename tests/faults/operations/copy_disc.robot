# The tracks of a disc go into the catalog, for a copy.
begin two_songs
press frmHauptForm.imgBrennen
press frmCDBrennen.imgBrennen
answer-all 7
disc insert "C:\Vantora\Discos\Disco 001.cue"
press frmHauptForm.imgCDKopieren
answer 7
writefile ${DISK} text ${FAULT}
answer 6
answer-all 7
