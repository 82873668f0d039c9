#!/bin/bash
# make_disc.sh ROBOT [FOLDER]: makes an audio CD unattended, in real windows on an invisible screen,
# compares the finished image with the waves, and prints the names of its files. They are in a new
# folder vantora-demo below FOLDER (by default the current folder).
set -euo pipefail
demo=$(dirname "$(readlink -f "$0")")
robot=$(readlink -f "$1")
place=$(readlink -f "${2:-.}")
[ -w "$place" ] || place=$HOME

folder=$place/vantora-demo
number=1
until mkdir "$folder" 2>/dev/null; do
  [ -e "$folder" ] || { echo "No se puede crear la carpeta $folder." >&2; exit 1; }
  number=$((number + 1))
  folder=$place/vantora-demo-$number
done
cd "$folder"

# The toolkit wants a folder for its sockets and complains where a session has not made one.
if [ -z "${XDG_RUNTIME_DIR-}" ]; then
  XDG_RUNTIME_DIR=$(mktemp -d)
  export XDG_RUNTIME_DIR
  trap 'rm -rf "$XDG_RUNTIME_DIR"' EXIT
fi

echo "== De los archivos al disco, en $folder"
if ! QT_QPA_PLATFORM=offscreen "$robot" --windows "$demo/from_files_to_disc.robot"; then
  echo "La demostración no ha llegado al final. Lo hecho hasta ahora queda en $folder." >&2
  exit 1
fi

image="Vantora/Discos/Disco 001"
log=Vantora/VTRBurn.log catalog=Vantora/Catálogo/verano.vtr
echo "== La imagen se compara con los archivos WAVE"
python3 "$demo/check_image.py" "$image.cue" Música/azul.wav Vantora/Wavs/mar_abierto.wav ||
  { echo "¡La imagen no contiene lo que debía!" >&2; exit 1; }

for file in "$image.bin" "$image.cue" "$log" "$catalog" pictures/{1,2,3,4,5,6}-*.png; do
  [ -s "$file" ] || { echo "Falta $folder/$file, o está vacío." >&2; exit 1; }
done
echo "== El CD está listo. En $folder quedan:"
echo "  imagen del disco   $image.bin"
echo "  hoja del disco     $image.cue"
echo "  protocolo          $log"
echo "  catálogo           $catalog"
echo "  ventanas           pictures/ ($(ls pictures | wc -l) imágenes)"
