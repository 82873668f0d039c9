# The user listens to a disc.
home home
screen 1024 768
clock 2026-11-24 10:00
setting Show_Start_Assistant 0
setting Show_TAO_Message 0
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
