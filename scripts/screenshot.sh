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
sh "$(dirname "$0")/setup.sh" xvfb xauth imagemagick xdotool openbox
# The program saves its window placement on closing; keep the user's settings as they were.
saved=$(mktemp)
cp "$program/window.ini" "$saved"
trap 'cp "$saved" "$program/window.ini"; rm -f "$saved"' EXIT
# The verse of the day would open over the window: not for this picture.
sed -i "/^\[verseofday\]/,/^\[/ s/^show=.*/show=0\r/" "$program/window.ini"
xvfb-run -a -s "-screen 0 1280x860x24" sh -c "
    openbox >/dev/null 2>&1 &
    sleep 1
    '$program/quillstone' --dir '$program' >/dev/null 2>&1 &
    app=\$!
    for i in 1 2 3 4 5 6 7 8 9 10; do
        wid=\$(xdotool search --name ' - Quillstone Bible ' 2>/dev/null | head -n 1)
        [ -n \"\$wid\" ] && break
        sleep 1
    done
    xdotool windowactivate --sync \$wid 2>/dev/null || true
    sleep 1
    xdotool key --window \$wid alt+r
    xdotool type --delay 40 '$reference'
    xdotool key Return
    sleep 1
    # The tabs are reached from the passage with Ctrl+Tab, as a reader would.
    if [ $presses -gt 0 ]; then
        eval \$(xdotool getwindowgeometry --shell \$wid)
        xdotool mousemove --window \$wid \$((WIDTH * 2 / 3)) \$((HEIGHT / 2)) click 1
        i=0
        while [ \$i -lt $presses ]; do xdotool key ctrl+Tab; i=\$((i + 1)); sleep 0.5; done
        sleep 1
    fi
    import -window \$wid '$out'
    kill \$app
"
echo "$out"
