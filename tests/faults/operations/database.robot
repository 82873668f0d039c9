# A disc is deleted from the database.
setting Auto_Database 1
begin two_songs
press frmHauptForm.imgBrennen
press frmCDBrennen.imgBrennen
answer-all 7
press frmHauptForm.imgDatenBank
writefile ${DISK} text ${FAULT}
press frmDatenbank.imgLöschen
answer-all 7
key frmDatenbank Escape
