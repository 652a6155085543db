#!/bin/bash
# use-subdirectory.sh <build folder> <compiler> [<option>...]: builds a project that has the library
# as a folder of its own, and runs its programs.
set -euo pipefail
build=$1 compiler=$2
shift 2
export QT_QPA_PLATFORM=offscreen
here=$(cd "$(dirname "$0")" && pwd)
cmake -S "$here" -B "$build" -G Ninja -DVEXEL_FOLDER="$here/../.." -DCMAKE_CXX_COMPILER="$compiler" \
  -DCMAKE_BUILD_TYPE=Release "$@"
cmake --build "$build" -j2
cd "$build" && ./figure && ./window
