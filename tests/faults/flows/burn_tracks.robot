# Track At Once.
begin two_longer_songs
press frmHauptForm.imgBrennen
press frmCDBrennen.optTrackAtOnce
drive "disc virgen" ${FAULT}
press frmCDBrennen.imgBrennen
answer-all 6
