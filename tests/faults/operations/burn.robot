# A disc with pauses is written, with its protocol and its entry in the database.
setting Auto_Database 1
begin two_songs
press frmHauptForm.imgBrennen
press frmCDBrennen.optTrackAtOnce
writefile ${DISK} text ${FAULT}
press frmCDBrennen.imgBrennen
answer-all 7
