# A side of a cover becomes a PDF.
begin one_song
printer pdf home/pdf
press frmHauptForm.imgPrintCover
press frmPrintStart.imgReady
press frmPrint.imgPrintMe
writefile ${DISK} text ${FAULT}
print ok
answer-all 7
press frmPrint.imgAbbrechen
