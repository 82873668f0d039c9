#!/bin/sh
# check_package.sh BUILD SCRATCH: makes the Debian package of BUILD, unpacks it into the folder
# SCRATCH and runs the unpacked robot. A file that is missing in the package makes the run fail.
set -eu
build=$1 scratch=$2
rm -rf "$scratch"
mkdir -p "$scratch/root"

(cd "$build" && cpack -G DEB -B "$scratch/deb")
set -- "$scratch"/deb/*.deb
[ $# = 1 ] && [ -f "$1" ] || { echo "not one package but: $*" >&2; exit 1; }
dpkg-deb -x "$1" "$scratch/root"
dpkg-deb -f "$1"

depends=$(dpkg-deb -f "$1" Depends)
for library in libc6 libasound2 libfftw3-single3 libmpg123-0 libsamplerate0 libqt6widgets6 libqt6svg6; do
  case $depends in
    *$library*) ;;
    *) echo "the package does not depend on $library" >&2; exit 1 ;;
  esac
done

cd "$scratch/root/usr"
desktop-file-validate share/applications/vantora.desktop
appstreamcli validate --no-net share/metainfo/org.vantora.Vantora.metainfo.xml
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
