# The tracks of a disc become files.
drive "disc vendido sold"
start
press frmHauptForm.imgCDAuslesen
press frmCDPlayer.imgAllesWaehlen
drive "disc vendido sold" ${FAULT}
press frmCDPlayer.imgSpeichern
answer-all 7
