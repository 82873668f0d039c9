# The program starts in an empty home, and ends.
writefile ${DISK} text ${FAULT}
start
answer-all 7
close
