# The user listens to a disc.
drive "disc vendido sold"
start
press frmHauptForm.imgCDAuslesen
drive "disc vendido sold" ${FAULT}
press frmCDPlayer.imgPlay
answer-all 7
wait 3000
answer-all 7
press frmCDPlayer.imgStop
answer-all 7
