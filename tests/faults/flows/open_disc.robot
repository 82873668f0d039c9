# The user opens the window of the disc.
start
drive "disc vendido sold" ${FAULT}
press frmHauptForm.imgCDAuslesen
answer-all 7
