# The user opens the window of the disc.
home home
screen 1024 768
clock 2026-11-24 10:00
setting Show_Start_Assistant 0
setting Show_TAO_Message 0
start
drive "disc vendido sold" ${FAULT}
press frmHauptForm.imgCDAuslesen
answer-all 7
