# The same as one stream: the files lend their pauses.
begin two_songs
press frmHauptForm.imgBrennen
press frmCDBrennen.optDiscAtOnce
writefile ${DISK} text ${FAULT}
press frmCDBrennen.imgBrennen
answer-all 7
