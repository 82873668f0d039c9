# Functions for ./vantora and ./run-tests: packages and the build folder. Bash sources this file in
# the top folder of the tree.

build=build

fail() {
  echo "$(basename "$0"): $*" >&2
  exit 1
}

# packages_of PART...: prints the packages of these parts of the list.
packages_of() {
  local part
  for part; do
    awk -v part="# $part" '/^#/ { on = $0 == part; next } on && NF' packaging/debian-packages.txt
  done
}

# missing PACKAGE...: prints the packages that are not installed.
missing() {
  comm -23 <(printf '%s\n' "$@" | sort -u) \
    <(dpkg-query -W -f='${db:Status-Status} ${Package}\n' "$@" 2>/dev/null |
      sed -n 's/^installed //p' | sort -u)
}

# as_root COMMAND...: without a terminal, sudo must not ask for a password.
as_root() {
  if [ "$(id -u)" = 0 ]; then
    "$@"
  elif [ -t 0 ]; then
    sudo "$@"
  else
    sudo -n "$@"
  fi
}

# A build server is thrown away: there dpkg need not wait for the disk after each file, which makes
# the installation several times as fast.
apt_get() {
  as_root env DEBIAN_FRONTEND=noninteractive apt-get -y -q -o Acquire::Retries=3 \
    -o DPkg::Lock::Timeout=600 -o Dpkg::Use-Pty=0 ${CI:+-o Dpkg::Options::=--force-unsafe-io} \
    "$@" </dev/null
}

# install_missing PART...: asks no questions, and does not call apt when all packages are installed.
install_missing() {
  local -a lacking
  if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
    echo "Este sistema no tiene apt. Hacen falta:" $(packages_of "$@")
    return
  fi
  mapfile -t lacking < <(missing $(packages_of "$@"))
  [ ${#lacking[@]} -gt 0 ] || return 0

  echo "== Instalando lo que falta: ${lacking[*]}"
  if [ "$(id -u)" != 0 ] && ! command -v sudo >/dev/null; then
    fail "faltan paquetes y no hay sudo. Como root: apt-get install ${lacking[*]}"
  fi
  apt_get update || echo "No se ha podido actualizar la lista de paquetes; se sigue con la que hay."
  if ! apt_get install --no-install-recommends "${lacking[@]}"; then
    # A single name that this release does not know makes apt refuse all of them.
    local package
    for package in "${lacking[@]}"; do
      apt_get install --no-install-recommends "$package" || true
    done
  fi
  mapfile -t lacking < <(missing "${lacking[@]}")
  [ ${#lacking[@]} = 0 ] || fail "no se han podido instalar: ${lacking[*]}"
}

# configure FOLDER [OPTION...]: begins anew if the folder was configured for another source tree.
configure() {
  local folder=$1 cache=$1/CMakeCache.txt
  shift
  local -a fresh=()
  if [ -e "$cache" ] && ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$(pwd -P)" "$cache"; then
    fresh=(--fresh)
  fi
  cmake -S . -B "$folder" -G Ninja -Wno-dev --log-level=WARNING -DVANTORA_WERROR=ON \
    "${fresh[@]}" "$@" ||
    fail "la configuración de $folder/ ha fallado."
}
