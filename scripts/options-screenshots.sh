#!/bin/sh
# Pictures of "Bible Options" and "Organize Bookmarks" as a user sees them: under Xvfb with a
# window manager, the options dialog is opened with Ctrl+comma, four colours and the passage font
# are changed through the real colour and font dialogs, the settings are saved, John 3 is shown
# and the Organize dialog opened. The clicks use the places of the controls on a 1280x860 screen
# with the default window.ini: run it on a copy of a fresh program folder holding bookmarks.
# Usage: scripts/options-screenshots.sh PROGRAM_FOLDER OUTPUT_FOLDER
set -eu
folder=$(cd "$1" && pwd)
out=$(cd "$2" && pwd)
if [ "${3:-}" != "--in-x" ]; then
    sh "$(dirname "$0")/setup.sh" xvfb xauth imagemagick xdotool openbox
    # The verse of the day would open over the windows: not for these pictures.
    sed -i "/^\[verseofday\]/,/^\[/ s/^show=.*/show=0\r/" "$folder/window.ini"
    exec xvfb-run -a -s "-screen 0 1280x860x24" sh "$0" "$folder" "$out" --in-x
fi
openbox >/dev/null 2>&1 &
sleep 1
$folder/quillstone --dir $folder >/dev/null 2>&1 &
app=$!
sleep 3
wid=$(xdotool search --name ' - Quillstone Bible ' | head -1)
xdotool windowactivate --sync $wid
xdotool key ctrl+comma
sleep 1.5
DX=403; DY=141
pick() { # x y colour
  xdotool mousemove $((DX + $1)) $((DY + $2)) click 1
  sleep 1
  xdotool key alt+h; sleep 0.2; xdotool key ctrl+a; xdotool type "$3"; sleep 0.2; xdotool key Return
  sleep 0.7
}
import -window root $out/demo0.png
pick 134 140 '#dce6f2'
pick 134 286 '#fdf6e3'
pick 134 433 '#34495e'
pick 134 407 '#ffffff'
xdotool mousemove $((DX + 92)) $((DY + 233)) click 1
sleep 1.2
import -window root $out/demo1.png
xdotool key alt+f; sleep 0.2; xdotool key ctrl+a; xdotool type 'DejaVu Serif'; sleep 0.3
xdotool key alt+y; sleep 0.2; xdotool key ctrl+a; xdotool type 'Book'; sleep 0.3
xdotool key alt+s; sleep 0.2; xdotool key ctrl+a; xdotool type '13'; sleep 0.3
import -window root $out/demo2.png
xdotool key Return
sleep 0.8
import -window root $out/demo3.png
xdotool key alt+g; sleep 0.5
import -window root $out/demo4.png
xdotool key alt+o; sleep 0.5
import -window root $out/demo5.png
xdotool key alt+s
sleep 1
xdotool key --window $wid alt+r
xdotool type --delay 30 'John 3'
xdotool key Return
sleep 1
import -window $wid $out/demo6.png
xdotool key ctrl+b
sleep 1
xdotool key Down
sleep 0.5
import -window root $out/demo7.png
xdotool key Escape
sleep 0.5
kill $app
