#!/bin/sh
# with_sound.sh COMMAND [WORD ...]: runs COMMAND with an emulated sound card, whatever the machine
# has, and returns its exit code.
#
# The card is a private PulseAudio daemon with a null sink, which consumes sound at the pace of a
# real card. (A sink that allows rewinding would consume two seconds at once when it starts.) The
# sink's monitor is the default input, so that played sound can be recorded again. ALSA's "default"
# leads to this daemon for playing, recording and the mixer. The user's own sound server and
# settings are neither changed nor used, and root may run this script too.
set -eu

[ $# -gt 0 ] || { echo "usage: with_sound.sh COMMAND [WORD ...]" >&2; exit 2; }

# The path of a socket must be short, so the folder is in /tmp, whatever TMPDIR is.
room=$(mktemp -d /tmp/vantora-sound.XXXXXX)
daemon=
# The daemon is a child of this shell until it has been waited for, so its process ID stays valid.
leave() {
  if [ -n "$daemon" ]; then
    kill "$daemon" 2>/dev/null || true
    wait "$daemon" 2>/dev/null || true
  fi
  rm -rf "$room"
}
trap leave EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

mkdir "$room/run" "$room/home"
printf 'autospawn = no\nenable-shm = no\n' >"$room/client.conf"
cat >"$room/asound.conf" <<'CONF'
</usr/share/alsa/alsa.conf>
pcm.!default {
  type pulse
  hint.show on
  hint.description "Test card"
}
ctl.!default {
  type pulse
}
CONF
# Without its hooks, ALSA's configuration does not read the settings of the machine and the user.
sed '/^@hooks/,/^\]/d' /usr/share/alsa/alsa.conf >"$room/alsa.conf"
sed -i "s|^<.*>\$|<$room/alsa.conf>|" "$room/asound.conf"

env HOME="$room/home" XDG_RUNTIME_DIR="$room/run" PULSE_CLIENTCONFIG="$room/client.conf" \
  setpriv --pdeathsig TERM pulseaudio -n --daemonize=no --exit-idle-time=-1 --use-pid-file=no \
  --disable-shm=yes --realtime=no --high-priority=no --log-target=stderr --log-level=error \
  -L "module-null-sink sink_name=test norewinds=1 rate=44100 format=s16le channels=2" \
  -L "module-native-protocol-unix socket=$room/socket auth-anonymous=1" \
  2>"$room/log" </dev/null &
daemon=$!

export PULSE_SERVER="unix:$room/socket" PULSE_CLIENTCONFIG="$room/client.conf"
export PULSE_COOKIE="$room/cookie" PULSE_RUNTIME_PATH="$room/run" PULSE_STATE_PATH="$room/run"
export ALSA_CONFIG_PATH="$room/asound.conf"

tries=0
until [ -S "$room/socket" ] && pactl info >/dev/null 2>&1; do
  tries=$((tries + 1))
  if [ $tries -gt 100 ] || ! kill -0 "$daemon" 2>/dev/null; then
    echo "with_sound.sh: the sound server did not start" >&2
    cat "$room/log" >&2
    exit 1
  fi
  sleep 0.1
done

code=0
"$@" || code=$?
exit $code
