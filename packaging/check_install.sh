#!/bin/bash
# check_install.sh DEB: installs the package in a minimal Debian system, with no more than it depends
# on, starts the program there as a user who has never started it, closes it, and removes the package.
# The system is made from the package sources of this machine, in memory where there is room, and is
# gone afterwards. Needs root, mmdebstrap, Xvfb and xdotool.
set -euo pipefail

fail() {
  echo "check_install.sh: $*" >&2
  exit 1
}

# The steps inside the new system, whose folder is $root: mmdebstrap calls this script with "inside".

# windows COUNT TITLE: waits until so many windows are visible whose titles begin so.
windows() {
  local from=$SECONDS
  until [ "$(xdotool search --onlyvisible --name "^$2" 2>/dev/null | wc -l)" = "$1" ]; do
    kill -0 "$program" 2>/dev/null || fail "el programa ha salido antes de abrir «$2»."
    [ $((SECONDS - from)) -lt 60 ] || fail "la ventana «$2» no se ha abierto."
    sleep 0.2
  done
  sleep 0.5  # until it has the keyboard
}

# The screen is the host's: it is reached through a socket that has no place in the file system.
start_and_close() {
  chroot --userspec=somebody:somebody "$root" env -i HOME=/home/somebody LANG=C.UTF-8 \
    PATH=/usr/local/bin:/usr/bin:/bin DISPLAY="$DISPLAY" vantora &
  program=$!
  windows 2 Vantora  # the splash window and the message that there is no sound card
  xdotool key Return
  windows 1 Asistente
  xdotool key Escape
  windows 0 Asistente
  # the exit button of the main window: its layout has left, top, width and height in twips
  xdotool mousemove $(awk '$1 == "imgÜberblenden" { print int(($2 + $4 / 2) / 15), int(($3 + $5 / 2) / 15) }' \
    "$root/usr/share/vantora/layouts/frmHauptForm_1000.layout") click 1
  windows 1 Mensaje
  xdotool key Return  # yes, leave
  local code=0
  wait "$program" || code=$?
  [ $code = 0 ] || fail "el programa ha salido con el código $code."
  [ -d "$root/home/somebody/Vantora/Bandeja" ] || fail "el programa no ha preparado sus carpetas."
  [ -s "$root/home/somebody/.config/vantora/settings.conf" ] || fail "no hay parámetros."
}

inside() {
  local file
  cp "$deb" "$root/vantora.deb"
  chroot "$root" apt-get -q -y --no-install-recommends -o Dpkg::Use-Pty=0 install /vantora.deb
  chroot "$root" useradd --create-home somebody
  start_and_close

  chroot "$root" dpkg -L vantora >"$root/files"
  chroot "$root" dpkg --purge vantora
  while read -r file; do
    if [ -f "$root$file" ] || [ "${file%vantora}" != "$file" ] && [ -e "$root$file" ]; then
      fail "$file ha quedado después de quitar el paquete."
    fi
  done <"$root/files"
  [ -d "$root/home/somebody/Vantora" ] || fail "los archivos del usuario han desaparecido."
  echo "El paquete se instala, se abre, se cierra y se quita en un sistema mínimo."
}

if [ "$1" = inside ]; then
  deb=$2 root=$3
  inside
  exit
fi

deb=$(readlink -m "$1")
[ -f "$deb" ] || fail "no hay paquete $1."
scratch=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null; rm -rf "$scratch"' EXIT

Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp 3>"$scratch/display" 2>/dev/null &
for ((try = 0; try < 100; try++)); do
  [ ! -s "$scratch/display" ] || break
  sleep 0.1
done
DISPLAY=:$(cat "$scratch/display")
export DISPLAY

# apt of the new system uses the package sources of this machine, its proxy and its limits.
sources=()
for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list /etc/apt/sources.list.d/*.sources; do
  [ ! -s "$file" ] || sources+=("$file")
done
apt-config dump | grep -E '^Acquire::(http|https|Retries|Check-Valid-Until|Check-Date)' \
  >"$scratch/apt.conf" || true
if [ "$(stat --file-system --format=%T /dev/shm)" = tmpfs ] &&
  [ "$(df --output=avail /dev/shm | tail -1)" -gt 2000000 ]; then
  export TMPDIR=/dev/shm
fi
. /etc/os-release
if ! timeout 600 mmdebstrap --variant=apt --dpkgopt=force-unsafe-io \
  --aptopt="$scratch/apt.conf" --customize-hook="'$(readlink -f "$0")' inside '$deb' \"\$1\"" \
  "$VERSION_CODENAME" /dev/null "${sources[@]}" >"$scratch/log" 2>&1; then
  cat "$scratch/log" >&2
  grep -q "^check_install.sh" "$scratch/log" && fail "el paquete no ha pasado la prueba: véase arriba."
  fail "el sistema mínimo no se ha podido crear. ¿Hay red, y fuentes de paquetes para apt?"
fi
grep -a "^El paquete" "$scratch/log"
