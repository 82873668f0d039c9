# A disc is read for a copy.
drive "disc vendido sold"
start
drive "disc vendido sold" ${FAULT}
press frmHauptForm.imgCDKopieren
answer 6
answer-all 7
