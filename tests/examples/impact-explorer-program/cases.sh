#!/bin/bash
# cases.sh <program>: runs the program over good and bad input and says what is wrong.
set -uo pipefail
program=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder" || exit 1
failed=0
# Nothing here may open a window.
unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM

complain() {
  echo "$1" >&2
  failed=1
}

# fails <text> <argument>...: exit code 2, one line on standard error with the text, no output, and
# figure.png as it was, alone.
fails() {
  local text=$1
  shift
  echo kept >figure.png
  before=$(ls)
  "$program" "$@" >stdout 2>stderr
  local code=$?
  [[ $code == 2 ]] || complain "exit code $code of: $*"
  [[ $(wc -l <stderr) == 1 ]] || complain "not one line for: $* - $(cat stderr)"
  grep -qF -- "$text" stderr || complain "no \"$text\" for: $* - $(cat stderr)"
  [[ ! -s stdout ]] || complain "output for: $*"
  rm stdout stderr
  [[ $(cat figure.png) == kept ]] || complain "figure.png changed by: $*"
  [[ $(ls) == "$before" ]] || complain "files left by: $* - $(ls)"
  rm figure.png
}

# works <argument>...: exit code 0.
works() {
  "$program" "$@" 2>stderr || complain "$(cat stderr) - exit code of: $*"
}

# starts <file> <hexadecimal bytes>
starts() {
  [[ $(head -c $((${#2} / 2)) "$1" | od -An -tx1 | tr -d ' \n') == "$2" ]] || complain "$1 is none"
}

# pixels <file>: width and height of a PNG.
pixels() { od -An -tu4 -j16 -N8 --endian=big "$1" | tr -s ' '; }

mkdir folder
: >empty.csv
head -c 300 /dev/urandom >noise.csv
printf 'Julian date,Charge\n' >header.csv
printf 'Julian date,Charge\nx,y\n' >words.csv
printf 'Day,Charge\n1,2\n' >notime.csv
printf 'Julian date,Charge\n2459000.5,1\n2459001.5,2.5\n2459002.5,4\n2459003.5,nan\n' >good.csv
printf 'Julian date,Charge\n2459000.5,1\n2459001.5\n2459002.5,x\n2459003.5,3\n' >ragged.csv
printf 'Julian date,Charge\n1e300,1\n-1e300,2.5\nnan,3\n' >far.csv

fails 'missing.csv' missing.csv --export figure.png
fails 'folder' folder --export figure.png
fails 'empty.csv' empty.csv --export figure.png
fails 'noise.csv' noise.csv --export figure.png
fails 'header.csv' header.csv --export figure.png
fails 'words.csv' words.csv --export figure.png
fails 'notime.csv' notime.csv --export figure.png
fails 'Other' good.csv --x Other --export figure.png
fails 'Other' good.csv --y Other --export figure.png
fails 'figure.gif' good.csv --export figure.gif
fails 'nowhere/figure.png' good.csv --export nowhere/figure.png
fails 'folder.png' good.csv --export folder.png/
fails '--export' good.csv
fails '--size' good.csv --export figure.png --size 10
fails '--size' good.csv --export figure.png --size 0x10
fails '--size' good.csv --export figure.png --size 99999x10
fails 'figure.png' good.csv --export figure.png --size 32767x32767 --scale 4
fails '--scale' good.csv --export figure.png --scale 0
fails '--theme' good.csv --export figure.png --theme pink
fails '--what' good.csv --export figure.png --what
fails 'two columns' good.csv --export figure.png --figure color
fails 'Speed' good.csv --export figure.png --figure color --color Speed
fails '--figure' good.csv --export figure.png --figure pie

for theme in black white print; do
  works good.csv --theme "$theme" --size 300x200 \
    --export "$theme.png" --export "$theme.pdf" --export "$theme.svg"
  starts "$theme.png" 89504e47
  starts "$theme.pdf" 25504446
  starts "$theme.svg" 3c3f786d6c
done
cmp -s black.png white.png && complain 'black looks like white'
cmp -s white.png print.png || complain 'print differs from white'
[[ $(pixels white.png) == ' 300 200' ]] || complain "pixels:$(pixels white.png)"

for type in png pdf svg; do
  works good.csv --size 300x200 --export "again.$type"
  cmp -s "again.$type" "white.$type" || complain "the second $type differs"
done

works good.csv --size 300x200 --scale 2 --export twice.png
[[ $(pixels twice.png) == ' 600 400' ]] || complain "pixels at scale 2:$(pixels twice.png)"

works good.csv --x 'julian DATE' --y Charge --y Charge --export chosen.svg
works far.csv --export far.png
# Nobody answers there.
DISPLAY=:65535 works good.csv --export far.png

printf 'Julian date,Charge,Speed\n2459000.5,1,-3\n2459001.5,2.5,nan\n2459002.5,4,9\n' >three.csv
for type in png pdf svg; do
  works three.csv --figure color --export "color.$type"
  works --figure tables --size 400x300 --export "tables.$type"
done
works three.csv --figure color --y speed --color charge --export other.png
cmp -s color.png other.png && complain 'another colour looks the same'
works far.csv --figure color --color 'Julian date' --export far.png

works ragged.csv --export ragged.png
[[ $(grep -c 'ragged.csv' stderr) -ge 2 ]] || complain "ragged rows: $(cat stderr)"
grep -q 'ragged.csv:3' stderr || complain "no line of the ragged row: $(cat stderr)"

exit $failed
