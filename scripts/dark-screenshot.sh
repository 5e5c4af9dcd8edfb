#!/bin/sh
# The main window under the dark look, as a reader would leave it: Psalm 23, then John 3, then
# Romans 8 and back with Alt+Left, so that Back and Forward beside the tabs both lead somewhere.
# Usage: scripts/dark-screenshot.sh PROGRAM_FOLDER OUTPUT.png
set -eu
program=$1
out=$2
. "$(dirname "$0")/session.sh"
# The dark look whatever the desktop's; the user's window.ini comes back afterwards.
printf '\r\n[look]\r\nscheme=2\r\n' >> "$program/window.ini"
session "
    front
    for reference in 'Psalm 23' 'John 3' 'Romans 8'; do
        xdotool key --window \$main alt+r
        xdotool key ctrl+a
        xdotool type --delay 40 \"\$reference\"
        xdotool key Return
        sleep 1
    done
    xdotool key alt+Left
    sleep 1.5
    import -window \$main '$out'
"
echo "$out"
