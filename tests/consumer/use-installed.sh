#!/bin/bash
# Uses an installed Vexel as others do, with CMake and with pkg-config, after moving it elsewhere.
#
#   use-installed.sh <prefix> <folder to work in> <C++ compiler> [<option of cmake>...]
#
# CMAKE_CXX_COMPILER_LAUNCHER may name a cache.
set -euo pipefail
consumer=$(cd "$(dirname "$0")" && pwd)
installed=$(realpath "$1")
rm -rf "$2"
mkdir -p "$2"
cd "$2"
prefix=$PWD/prefix
cp -a "$installed" "$prefix"
export CXX=$3 CMAKE_GENERATOR=Ninja QT_QPA_PLATFORM=offscreen
shift 3

fail() {
  echo "use-installed: $*" >&2
  exit 1
}

pc=$(find "$prefix" -name vexel.pc)
libdir=$(dirname "$(dirname "$pc")")
programs=(figure)
[[ ! -e $libdir/pkgconfig/vexel-qt.pc ]] || programs+=(window)

cmake -S "$consumer" -B package -DCMAKE_BUILD_TYPE=Release -DCMAKE_PREFIX_PATH="$prefix" "$@" \
  >package.log 2>&1 || { cat package.log >&2; fail "find_package fails"; }
cmake --build package -j2 >package.log || { cat package.log >&2; fail "does not build with CMake"; }
for program in "${programs[@]}"; do
  (cd package && "./$program") || fail "$program, built with CMake, fails"
done

export PKG_CONFIG_PATH=$libdir/pkgconfig
static=()
[[ -e $libdir/libvexel.so ]] || static=(--static)
declare -A module=([figure]=vexel [window]=vexel-qt)
for program in "${programs[@]}"; do
  read -ra compile < <(pkg-config --cflags "${module[$program]}")
  read -ra link < <(pkg-config --libs "${static[@]}" "${module[$program]}")
  ${CMAKE_CXX_COMPILER_LAUNCHER:-} "$CXX" -std=c++20 -fPIC "${compile[@]}" -c "$consumer/$program.cpp"
  "$CXX" "$program.o" -o "$program" "${link[@]}" -Wl,-rpath,"$libdir"
  "./$program" || fail "$program, built with pkg-config, fails"
done

# refused <what is asked for> <pattern of the reason> [<option of cmake>]
refused() {
  if cmake "${@:3}" -S "$consumer/refused" -B refused -DVexel_DIR="$libdir/cmake/Vexel" -DWANTED="$1" \
    >refused.log 2>&1; then
    fail "find_package finds what is not there: $1"
  fi
  tr -s ' \n' ' ' <refused.log | grep -q "$2" || { cat refused.log >&2; fail "no reason for: $1"; }
  rm -r refused
}
refused "0.2" 'compatible with requested version "0.2"'
refused "9" 'compatible with requested version "9"'
refused "0.1;COMPONENTS;Gtk" 'no component Gtk'
if [[ ${#programs[@]} == 2 ]]; then
  refused "0.1;COMPONENTS;Qt" 'needs the development files of Qt 6' -DCMAKE_DISABLE_FIND_PACKAGE_Qt6=ON
fi
rm -f "$libdir"/cmake/Vexel/VexelQtTargets*
refused "0.1;COMPONENTS;Qt" 'without its component Qt'
