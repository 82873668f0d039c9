# Disc At Once: the files lend their pauses.
begin two_longer_songs
press frmHauptForm.imgBrennen
press frmCDBrennen.optDiscAtOnce
drive "disc virgen" ${FAULT}
press frmCDBrennen.imgBrennen
answer-all 6
