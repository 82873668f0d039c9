#!/bin/sh
# long_runs.sh FOLDER: the long runs of the random user, and the tests of the back ends under the
# thread sanitizer. It builds what it needs in build-asan and build-threads. FOLDER gets the logs.
# It takes two hours; the first thing that fails ends it.
set -e
[ -n "$1" ] || { echo "usage: long_runs.sh FOLDER" >&2; exit 2; }
mkdir -p "$1"
logs=$(cd "$1" && pwd)
cd "$(dirname "$0")/../.."
export QT_QPA_PLATFORM=offscreen UBSAN_OPTIONS=print_stacktrace=1

cmake --preset threads
cmake --build --preset threads
TSAN_OPTIONS=suppressions=$PWD/tests/support/threads.supp
export TSAN_OPTIONS
(cd build-threads
 ./backend_tests
 ./alsa_silent_tests
 ../tests/support/with_sound.sh ./alsa_tests --gtest_filter=-GoneServer.*
 ../tests/support/with_sound.sh ./alsa_tests --gtest_filter=GoneServer.*
 LD_PRELOAD=$PWD/libemulated_drive.so ./drive_tests) >"$logs/threads.log" 2>&1
grep -a '^\[  PASSED' "$logs/threads.log"

cmake --preset sanitize
cmake --build --preset sanitize --target long-run
for run in "clock --hours 4" "world --hours 1 --windows"; do
  name=${run%% *}
  # shellcheck disable=SC2086  # the options are words
  build-asan/long-run --seed 1 ${run#* } "$logs/$name" >"$logs/$name.log" 2>&1
  tail -n 30 "$logs/$name.log"
done
