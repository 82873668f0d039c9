# Disc At Once; then the disc is read again and compared with its waves.
setting Verify_Burn 1
begin two_longer_songs
press frmHauptForm.imgBrennen
press frmCDBrennen.optDiscAtOnce
drive "disc virgen" ${FAULT}
press frmCDBrennen.imgBrennen
answer-all 6
