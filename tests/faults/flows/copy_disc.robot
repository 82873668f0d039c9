# A disc is read for a copy.
home home
screen 1024 768
clock 2026-11-24 10:00
setting Show_Start_Assistant 0
setting Show_TAO_Message 0
drive "disc vendido sold"
start
drive "disc vendido sold" ${FAULT}
press frmHauptForm.imgCDKopieren
answer 6
answer-all 7
