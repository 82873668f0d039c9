# A simulation.
begin two_longer_songs
press frmHauptForm.imgBrennen
press frmCDBrennen.optTrackAtOnce
press frmCDBrennen.chkSimulation
drive "disc virgen" ${FAULT}
press frmCDBrennen.imgBrennen
answer-all 6
