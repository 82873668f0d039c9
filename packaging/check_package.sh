#!/bin/sh
# check_package.sh BUILD SCRATCH: makes the Debian package of BUILD, lets the distribution's checkers
# read it, unpacks it into the folder SCRATCH and runs the unpacked robot. A file that is missing in
# the package makes the run fail, and so does a second package that is not the same bytes.
set -eu
build=$1 scratch=$2
rm -rf "$scratch"
mkdir -p "$scratch/root"

(cd "$build" && cpack -G DEB -B "$scratch/deb")
set -- "$scratch"/deb/*.deb
[ $# = 1 ] && [ -f "$1" ] || { echo "not one package but: $*" >&2; exit 1; }
lintian --allow-root --fail-on error,warning "$1"

# The folders of this machine in the program would make every machine's package another one. The
# unstripped program is searched, because its identification is computed from all of it.
for program in "$build"/vantora "$build"/vantora-robot; do
  if grep -aqF "$(cd "$(dirname "$0")/.." && pwd -P)" "$program"; then
    echo "$program names the folder in which it was built" >&2
    exit 1
  fi
done
# At another time, elsewhere.
(cd "$build" && TZ=Pacific/Auckland LC_ALL=C cpack -G DEB -B "$scratch/again")
cmp "$1" "$scratch"/again/*.deb

dpkg-deb -x "$1" "$scratch/root"
dpkg-deb -f "$1"

depends=$(dpkg-deb -f "$1" Depends)
for library in libc6 libasound2 libfftw3-single3 libmpg123-0 libsamplerate0 libqt6gui6 libqt6widgets6 libqt6svg6; do
  case $depends in
    *$library*) ;;
    *) echo "the package does not depend on $library" >&2; exit 1 ;;
  esac
done

# All pages that name the version name this one.
version=$(dpkg-deb -f "$1" Version)
cd "$scratch/root/usr"
zcat share/doc/vantora/changelog.gz | grep -q "^vantora ($version) "
grep -q "<release version=\"$version\"" share/metainfo/*.xml
for page in share/man/man1/*.gz share/man/es/man1/*.gz; do
  zcat "$page" | grep -q "^\.TH .*\"Vantora $version\""
done

desktop-file-validate share/applications/vantora.desktop
appstreamcli validate --no-net --pedantic share/metainfo/org.vantora.vantora.metainfo.xml
python3 -c 'import xml.dom.minidom as dom; dom.parse("share/mime/packages/vantora.xml")'
[ -s share/icons/hicolor/scalable/apps/vantora.svg ]

# Texts, layouts and pictures are the unpacked ones: there are no others beside the program.
cd "$scratch"
cat >story.robot <<'STORY'
home home
screen 800 600
start
expect-window frmStartAssistent
press frmStartAssistent.imgAbbrechen
expect frmHauptForm.lblKatalogTitel.Caption == "Nuevo título"
shot main.png
close
STORY
QT_QPA_PLATFORM=offscreen root/usr/bin/vantora-robot --windows story.robot
[ -s main.png ]
