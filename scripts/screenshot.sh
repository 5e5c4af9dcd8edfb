#!/bin/sh
# Takes a screenshot of the main window showing a passage, as a reader would see it.
# Usage: scripts/screenshot.sh PROGRAM_FOLDER OUTPUT.png [REFERENCE] [TAB]
# TAB is the caption of the tab to show after the passage: "Notes" or "TVC".
set -eu
program=$1
out=$2
reference=${3:-John 3}
tab=${4:-}
case "$tab" in
    Notes) presses=1 ;;
    TVC) presses=2 ;;
    *) presses=0 ;;
esac
. "$(dirname "$0")/session.sh"
session "
    front
    xdotool key --window \$main alt+r
    xdotool type --delay 40 '$reference'
    xdotool key Return
    sleep 1
    # The tabs are reached from the passage with Ctrl+Tab, as a reader would.
    if [ $presses -gt 0 ]; then
        eval \$(xdotool getwindowgeometry --shell \$main)
        xdotool mousemove --window \$main \$((WIDTH * 2 / 3)) \$((HEIGHT / 2)) click 1
        i=0
        while [ \$i -lt $presses ]; do xdotool key ctrl+Tab; i=\$((i + 1)); sleep 0.5; done
        sleep 1
    fi
    import -window \$main '$out'
"
echo "$out"
