# All faults of a drive in turn: each is reported, and in the end the program writes a good disc.
home home
screen 1024 768
setting Show_Start_Assistant 0
setting Show_TAO_Message 0
makewave C:\m\uno.wav 60 300
# a drive that another program uses is not listed
drive busy
start
press frmHauptForm.imgLiedImport
choose C:\m\uno.wav
key frmNeuerInterpret Return
press frmHauptForm.imgBrennen
expect frmCDBrennen.lstCDRecorder.Count == 1
expect frmCDBrennen.lstCDRecorder(1) ~ "VANTORA IMAGE"
# when it is free it is listed before the embedded writer; it has no disc, then one that is not
# blank, and the user gives up
drive "disc none"
press frmCDBrennen.optTrackAtOnce
press frmCDBrennen.imgBrennen
expect frmCDBrennen.lstCDRecorder.Count == 2
expect-box ~ "CD virgen"
answer 7
expect-box ~ "La grabadora no está lista"
answer 7
drive "disc comprado sold"
expect-box ~ "CD virgen"
answer 7
expect-box ~ "La grabadora no está lista"
answer 6
expect-box ~ "Operación cancelada"
answer 7
# the medium fails in the middle
drive "disc malo" "write-error 2000"
press frmCDBrennen.imgBrennen
answer 7
expect-box ~ "199680"
expect-box ~ "Error de medio"
answer 7
expect-box ~ "Operación cancelada"
answer 7
expect-window frmCDBrennen
# the drive refuses Disc At Once when it receives the cue sheet
drive "disc nuevo"
press frmCDBrennen.optDiscAtOnce
press frmCDBrennen.imgBrennen
drive "disc nuevo" no-sao
answer 7
expect-box ~ "DAO"
answer 7
expect-box ~ "Operación cancelada"
answer 7
# now the program uses the other method by itself
press frmCDBrennen.imgBrennen
answer 7
expect-box ~ "Finalizó la operación de grabado"
answer 7
answer 7
expect-file C:\drive\nuevo\image.bin exists
# the user cancels
drive "disc largo" "pace 300"
press frmHauptForm.imgBrennen
press frmCDBrennen.optTrackAtOnce
after 8000 press frmSchreibFortschritt.imgAbbrechen
press frmCDBrennen.imgBrennen
answer 7
expect-box ~ "Operación cancelada"
answer 7
# the cable is unplugged
drive "disc otro" "disconnect-at 2500"
press frmCDBrennen.imgBrennen
answer 7
expect-box ~ "ASPI"
answer 7
expect-box ~ "Operación cancelada"
answer 7
expect-window frmCDBrennen
# no other device replaces the drive without a question
press frmCDBrennen.imgBrennen
answer 7
expect-box ~ "La grabadora no está lista"
answer 6
answer 7
expect-file "C:\Vantora\Discos\Disco 001.cue" missing
# the user selects the embedded writer, which stays selected
select frmCDBrennen.lstCDRecorder 2
press frmCDBrennen.imgBrennen
expect frmCDBrennen.lstCDRecorder(1) ~ "VANTORA IMAGE"
answer 7
expect-box ~ "Finalizó la operación de grabado"
answer 7
answer 7
expect-file "C:\Vantora\Discos\Disco 001.cue" exists
# then the user selects the drive again, which is plugged in and has a good disc
press frmHauptForm.imgBrennen
press frmCDBrennen.optTrackAtOnce
drive "disc bueno"
select frmCDBrennen.lstCDRecorder 2
press frmCDBrennen.imgBrennen
answer 7
expect-box ~ "Finalizó la operación de grabado"
answer 7
answer 7
expect-file C:\drive\bueno\image.bin exists
expect-window frmHauptForm
close
