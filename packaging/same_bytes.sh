#!/bin/bash
# same_bytes.sh [FOLDER]: builds the present commit twice, from the beginning, in two folders of
# different length below FOLDER, and compares the packages. Takes as long as two builds.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
scratch=$(mktemp -d -p "${1:-${TMPDIR:-/tmp}}")
trap 'rm -rf "$scratch"' EXIT

# Both first: a commit that is made meanwhile must not reach the second one alone.
git clone --quiet "$top" "$scratch/one"
git clone --quiet "$scratch/one" "$scratch/another/place"
for place in one another/place; do
  # without a compiler cache, which would give both builds the same objects
  cmake -S "$scratch/$place" -B "$scratch/$place/build" -G Ninja -Wno-dev --log-level=WARNING \
    -DCCACHE=OFF -DBUILD_TESTING=OFF
  ninja -C "$scratch/$place/build" vantora vantora-robot
  (cd "$scratch/$place/build" && cpack -G DEB)
done
cmp "$scratch"/one/build/vantora_*.deb "$scratch"/another/place/build/vantora_*.deb
sha256sum "$scratch"/one/build/vantora_*.deb
