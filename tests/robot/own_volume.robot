# A card without a line for waves: the program's own volume replaces it, and keeps its value between
# starts.
home home
screen 1024 768
setting Show_Start_Assistant 0
mixer out Line 20000
makewave C:\m\uno.wav 3 440
start
press frmHauptForm.imgMixer
expect frmMixer.Fader(1).CaptionFader == Wave
expect frmMixer.Fader(1).Value == 100
press frmMixer.imgKnopf(1) 20
key frmMixer Home
key frmMixer PageUp
key frmMixer Up
press frmMixer.Check1(1)
key frmMixer Escape
close
start
press frmHauptForm.imgMixer
expect frmMixer.Fader(1).CaptionFader == Wave
expect frmMixer.Fader(1).Value == 11
expect frmMixer.Fader(1).Mute == 1
press frmMixer.imgKnopf(1) 20
key frmMixer Home
key frmMixer Escape
# the preview asks for it as for a line for waves
press frmHauptForm.imgLiedImport
choose C:\m\uno.wav
key frmNeuerInterpret Return
select frmHauptForm.lvwKatalog 1
press frmHauptForm.imgAbspielen
answer 6
answer 6
press frmHauptForm.imgMixer
expect frmMixer.Fader(1).Value == 50
key frmMixer Escape
expect-mixer Line volume == 20000
close
start
press frmHauptForm.imgMixer
expect frmMixer.Fader(1).Mute == 0
key frmMixer Escape
close
