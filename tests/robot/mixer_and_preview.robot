# A preview that cannot be heard, since the line for waves is muted and nearly silent. The user lets
# the program correct it, and finds the mixer unchanged otherwise. Changes by other programs are
# shown.
home home
screen 1024 768
setting Show_Start_Assistant 0
mixer out Line 20000 noswitch
mixer out CD 40000
mixer out "Video de la sala" 30000
mixer out Wave 2000 mute
mixer in Mic 16384
mixer in Line 49152 select
makewave C:\m\uno.wav 3 440
start
press frmHauptForm.imgLiedImport
choose C:\m\uno.wav
key frmNeuerInterpret Return
select frmHauptForm.lvwKatalog 1

# two answers "no": plays without changes
press frmHauptForm.imgAbspielen
expect-box ~ "función ""mute"" está activada"
answer 7
expect-box ~ "el volumen está cerca de 0"
answer 7
wait 500
expect frmHauptForm.Level.Active == True
press frmHauptForm.imgStop
expect-mixer Wave mute == True
expect-mixer Wave volume == 2000

# two answers "yes": the sound can be heard, and stays unmuted
press frmHauptForm.imgAbspielen
answer 6
expect-mixer Wave mute == False
answer 6
expect-mixer Wave volume == 32768
expect-mixer Wave mute == False
press frmHauptForm.imgStop
press frmHauptForm.imgAbspielen
expect-window frmHauptForm
press frmHauptForm.imgStop

press frmHauptForm.imgMixer
expect-window frmMixer
expect frmMixer.Fader(0).CaptionFader == Line
expect frmMixer.Fader(0).Value == 31
# reading writes nothing back
expect-mixer Line volume == 20000
expect frmMixer.Check1(0).Visible == False
expect frmMixer.Fader(1).CaptionFader == Wave
expect frmMixer.Fader(1).Value == 50
expect frmMixer.Fader(1).Mute == 0
expect frmMixer.Fader(3).CaptionFader == "Video d"
expect frmMixer.Fader(3).ToolTipText == "Volumen por Video de la sala"
expect frmMixer.Fader(4).Visible == False
expect frmMixer.Fader(5).CaptionFader == Mic
expect frmMixer.lblMute(6) == Activado
expect frmMixer.Fader(7).Visible == False
shot pictures/frmMixer.png

# by mouse: to both ends, and a little by the knob, gripped at its upper edge
drag frmMixer.imgKnopf(2) 400 1000
expect-mixer CD volume == 0
drag frmMixer.imgKnopf(2) 900 0
expect-mixer CD volume == 65536
press frmMixer.imgKnopf(2) 20
expect frmMixer.Fader(2).Value == 100
press frmMixer.Check1(2)
expect-mixer CD mute == True
expect frmMixer.lblMute(2) == Mudo
press frmMixer.lblMute(2)
expect-mixer CD mute == False
expect frmMixer.lblMute(2) == ""

# by keyboard
press frmMixer.imgKnopf(2) 20
key frmMixer Home
expect-mixer CD volume == 0
key frmMixer PageUp
key frmMixer Up
expect frmMixer.Fader(2).Value == 11
key frmMixer End
key frmMixer Down
expect-mixer CD volume == 64881
key frmMixer Tab
key frmMixer Space
expect-mixer CD mute == True

# the inputs, and a line that was changed from outside meanwhile
press frmMixer.Check1(5)
expect-mixer Mic select == True
expect frmMixer.lblMute(5) == Activado
mixer set CD 32768
mixer set Master 6554
key frmMixer Escape
expect-window frmHauptForm
press frmHauptForm.imgMixer
expect frmMixer.Fader(2).Value == 50
expect frmMixer.faderMasterOut.Value == 10
drag frmMixer.imgKnopf 500 0
expect-mixer Master volume == 65536
press frmMixer.imgCloseMixer
expect-window frmHauptForm
# the meter of the preview that was stopped stays dark
expect frmHauptForm.Level.PeakLeft == 0
close
