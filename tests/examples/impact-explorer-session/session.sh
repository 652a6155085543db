#!/bin/bash
# session.sh <program> [<folder>]: works with the program's window on a display of its own, as a
# user would, and says what is wrong. Screenshots are left in the folder, if one is given.
# Exit code 77: something that it needs is not installed.
set -uo pipefail
program=$(realpath "$1")
for tool in Xvfb xdotool import compare convert; do
  command -v "$tool" >/dev/null || {
    echo "session.sh: skipped, as $tool is not installed; tools/setup installs it" >&2
    exit 77
  }
done

# Nothing of it is for other programs; where none answers, libdbus leaves memory behind.
export DBUS_SESSION_BUS_ADDRESS=disabled:

folder=$(mktemp -d)
mkdir -p "${2:-$folder}"
shots=$(realpath "${2:-$folder}")
display=
explorer=
failed=0
stop() {
  [[ $explorer ]] && kill "$explorer" 2>/dev/null
  [[ $display ]] && kill "$display" 2>/dev/null
  rm -rf "$folder"
}
trap stop EXIT

complain() {
  echo "$1" >&2
  failed=1
}
give_up() {
  complain "$1"
  exit 1
}

# wait_for <seconds> <command>...: whether the command succeeds within that time.
wait_for() {
  local end=$((SECONDS + $1))
  shift
  until "$@"; do
    ((SECONDS < end)) || return 1
    sleep 0.05
  done
}

# A display whose number nobody else has. It would start anew, and refuse whoever comes meanwhile,
# whenever the last program leaves it.
Xvfb -noreset -displayfd 5 -screen 0 1400x1000x24 -nolisten tcp 5>"$folder/number" 2>"$folder/Xvfb" &
display=$!
wait_for 20 test -s "$folder/number" || give_up "no display: $(cat "$folder/Xvfb")"
DISPLAY=:$(cat "$folder/number")
export DISPLAY
unset WAYLAND_DISPLAY QT_QPA_PLATFORM
# Dialogs of the program's own, and nothing of the user's.
export XDG_CURRENT_DESKTOP=none QT_QPA_PLATFORMTHEME=none HOME=$folder XDG_RUNTIME_DIR=$folder

# Windows

# window <name>: the number of the window that is called so, exactly or with more behind.
window() { xdotool search --onlyvisible --name "^$1" 2>/dev/null | head -1; }
has_window() { [[ $(window "$1") ]]; }
has_no_window() { ! has_window "$1"; }

shot() { import -window "$main" "$shots/$1.png"; }
# differ <shot> <shot> [<part>]: how many pixels do; in a part such as 800x600+0+50.
differ() {
  local part=${3:-10000x10000+0+0}
  compare -metric AE "$shots/$1.png[$part]" "$shots/$2.png[$part]" null: 2>&1
}
# changes <shot> <shot> [<part>]: waits until the window looks other than the first shot, in the
# part, and makes the second one of it.
changes() {
  looks_other() {
    shot "$2"
    [[ $(differ "$@") != 0 ]]
  }
  wait_for 10 looks_other "$@"
}
# returns <shot> <shot> [<part>]: waits until the window looks as in the first shot again, in the
# part, and makes the second one of it.
returns() {
  looks_same() {
    shot "$2"
    [[ $(differ "$@") == 0 ]]
  }
  wait_for 10 looks_same "$@"
}
# color <shot> <x>,<y>
color() { convert "$shots/$1.png[1x1+${2/,/+}]" -format '%[hex:u.p{0,0}]' info:; }

move() { xdotool mousemove --window "$main" "$1" "$2"; }
key() { xdotool key --window 0 "$@"; }
focus() { xdotool windowfocus --sync "$1" 2>/dev/null; }

# fill_dialog <name> <text>: types into the dialog's first field and accepts it.
fill_dialog() {
  wait_for 10 has_window "$1" || { complain "no dialog called $1"; return 1; }
  focus "$(window "$1")"
  key ctrl+a
  xdotool type --delay 2 "$2"
  key Return
  wait_for 10 has_no_window "$1" || complain "the dialog $1 stays open"
  focus "$main"
}
# export_to <file>
export_to() {
  rm -f "$folder/$1"
  key ctrl+e
  fill_dialog "Export the figure" "$folder/$1"
  # Long for machines that do other things as well.
  wait_for 30 test -s "$folder/$1" || complain "$1 was not exported"
}
open_file() {
  key ctrl+o
  fill_dialog "Open a table" "$folder/$1"
}
is_called() { [[ $(xdotool getwindowname "$main") == "$1 - Impact Explorer" ]]; }

# Tables

LC_ALL=C awk 'BEGIN {
  print "Julian date,Charge [fC],Speed [km/s],Distance [au]"
  for (i = 0; i < 4000; ++i)
    printf "%.3f,%.3f,%.3f,%.4f\n", 2459000.5 + i / 4, exp(4 + 3 * sin(i / 97) + sin(i * i)),
           30 + 20 * sin(i / 41 + i * i), 0.7 + 0.4 * cos(i / 600)
}' >"$folder/impacts.csv"
printf 'JD,A,B\n2459000.5,1,2\nragged\n2459001.5,x,3\n2459002.5,4,5\n' >"$folder/damaged.csv"
printf 'one,two\nno,numbers\n' >"$folder/words.csv"
printf '\x89PNG\r\n\x1a\n\0\0' >"$folder/picture.png"
truncate -s 2G "$folder/sparse.csv"

# Start

cd "$folder" || exit 1
"$program" "$folder/impacts.csv" --size 900x700 >"$folder/output" 2>&1 &
explorer=$!
wait_for 30 has_window "impacts.csv - Impact Explorer" || give_up "no window: $(cat "$folder/output")"
main=$(window "impacts.csv - Impact Explorer")
focus "$main"
# The plot areas are the same in both parts of the figure.
figure=900x690+0+70
readout=880x20+0+24
move 890 600
is_drawn() {
  shot started
  [[ $(identify -format '%[fx:int(100*standard_deviation)]' "$shots/started.png[$figure]") -gt 5 ]]
}
wait_for 10 is_drawn || complain "the figure is empty"
export_to start.svg
grep -q '<svg' "$folder/start.svg" || complain "start.svg is no SVG"
shot still

# Hover

move 400 300
changes still hovered "$readout" || complain "hovering reads nothing out"
[[ $(differ still hovered "$figure") -gt 200 ]] || complain "no marker under the pointer"
move 500 500
changes hovered moved "$readout" || complain "moving reads nothing else out"
move 890 600
changes moved left "$readout" || complain "the read-out stays when the pointer has left"
returns still left "$figure" || complain "the marker stays when the pointer has left"

# Click

move 300 300
xdotool click 1
sleep 0.7 # or it would be the first of a double click
move 600 600
xdotool click 1
sleep 0.7
move 890 600
changes still pinned "$figure" || complain "clicks pin nothing"
export_to pinned.svg
cmp -s "$folder/start.svg" "$folder/pinned.svg" && complain "pins are not exported"
key Escape
returns still unpinned "$figure" || complain "pins stay after Escape"

# Zoom, drag and the way back

move 400 300
xdotool click --repeat 5 --delay 30 4
move 890 600
changes still zoomed "$figure" || complain "the wheel zooms nothing"
xdotool mousemove --window "$main" 300 300 mousedown 1
for x in 320 360 420 480; do
  move $x 300
  sleep 0.05
done
xdotool mouseup 1
move 890 600
changes zoomed panned "$figure" || complain "a drag pans nothing"
export_to zoomed.svg
cmp -s "$folder/start.svg" "$folder/zoomed.svg" && complain "zooming is not exported"
key alt+Left alt+Left
returns still back "$figure" || complain "going back twice is not where it began"
key alt+Right
changes back forward "$figure" || complain "going forward changes nothing"
move 400 300
xdotool click --repeat 2 --delay 60 1
move 890 600
returns still all "$figure" || complain "a double click does not show all"
export_to again.svg
cmp -s "$folder/start.svg" "$folder/again.svg" || complain "the way back ends in another figure"

# Print, to a file as there is no printer

key ctrl+p
wait_for 10 has_window Print || complain "no dialog to print"
focus "$(window Print)"
key Return
printed() { tail -c 10 "$folder/print.pdf" 2>/dev/null | grep -q %%EOF; }
wait_for 20 printed || complain "nothing was printed"
grep -aq /Font "$folder/print.pdf" || complain "text was printed as an image"
focus "$main"

# Keys

key Up Up
changes all keyed "$figure" || complain "keys zoom nothing"
key Home
returns still home "$figure" || complain "Home does not show all"

# Theme and table

[[ $(color still 890,400) == FFFFFF ]] || complain "the white theme is $(color still 890,400)"
key alt+h
key Up
changes still black "$figure" || complain "no other theme"
[[ $(color black 890,400) == 000000 ]] || complain "the black theme is $(color black 890,400)"
key Down
returns still white "$figure" || complain "the white theme has changed"
key alt+t
key Down Down
changes still table "$figure" || complain "no other colour table"
key alt+1
key Up
changes table bands "$figure" || complain "no other band"

# Files that cannot be used leave the figure; damaged ones are shown with a report

for file in picture.png words.csv sparse.csv; do
  shot before
  open_file "$file"
  changes before "refused-$file" 900x60+0+20 || complain "no message about $file"
  is_called impacts.csv || complain "$file has taken the place of the figure"
  open_file impacts.csv
  returns before reopened 900x60+0+20 || complain "the message about $file stays"
done
open_file damaged.csv
wait_for 10 is_called damaged.csv || complain "damaged.csv was not opened"
sleep 0.5
shot damaged

# Resize

xdotool windowsize --sync "$main" 700 500
sleep 0.7
shot small
[[ $(identify -format '%wx%h' "$shots/small.png") == 700x500 ]] || complain "not resized"
for size in "1300 900" "500 400" "900 640" "1200 800"; do xdotool windowsize "$main" $size; done
sleep 1
shot large
for type in png pdf svg; do export_to "last.$type"; done
[[ $(head -c 4 "$folder/last.pdf") == %PDF ]] || complain "last.pdf is no PDF"
identify "$folder/last.png" >/dev/null || complain "last.png is no PNG"

# Quit, which finishes what is being exported

key ctrl+e
fill_dialog "Export the figure" "$folder/quit.png"
key ctrl+q
has_ended() { ! kill -0 "$explorer" 2>/dev/null; }
wait_for 10 has_ended || give_up "Ctrl+Q does not quit"
wait "$explorer" || complain "exit code $?"
explorer=
identify "$folder/quit.png" >/dev/null || complain "quit.png is not whole"
[[ ! -s $folder/output ]] || complain "output: $(cat "$folder/output")"
exit $failed
