# The beginning of every script.
home home
screen 1024 768
clock 2026-11-24 10:00
setting Show_Start_Assistant 0
setting Show_TAO_Message 0
