# The user opens the window for burning.
begin one_song
drive "disc virgen" ${FAULT}
press frmHauptForm.imgBrennen
answer-all 7
