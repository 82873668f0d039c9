# The program starts.
drive "disc vendido sold" ${FAULT}
start
answer-all 7
