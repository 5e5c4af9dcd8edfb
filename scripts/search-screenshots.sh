#!/bin/sh
# Screenshots of searching as a reader does it: the Search window (Tools, Bible Search) after an
# all-words search over the New Testament, and the Find dialog (Edit, Find) stepping through the
# quick search's results.
# Usage: scripts/search-screenshots.sh PROGRAM_FOLDER OUTPUT_FOLDER
set -eu
program=$1
out=$(cd "$2" && pwd)
. "$(dirname "$0")/session.sh"
# Every book chosen to begin with; the New Testament box is ticked by the steps.
sed -i "/^\[search\]/,/^\[/ s/^books=.*/books=\r/" "$program/window.ini"

session "
    front
    # Tools, Bible Search.
    xdotool key alt+o s
    sleep 1.5
    w=\$(xdotool search --name '^Search\$' | head -n 1)
    xdotool windowactivate --sync \$w
    # The Old Testament's books cleared, all words, the query.
    xdotool key alt+o
    xdotool key alt+a
    xdotool key alt+s
    xdotool type --delay 30 'love one another'
    xdotool key Return
    sleep 2
    import -window \$w '$out/search-window-new-testament.png'
    xdotool key Escape
    xdotool windowclose \$w 2>/dev/null || true
    sleep 0.5

    # The quick search, then Edit, Find, stepping through it.
    xdotool windowactivate --sync \$main
    xdotool key alt+k
    xdotool type --delay 30 'faith hope'
    xdotool key Return
    sleep 2
    xdotool key alt+e f
    sleep 1
    f=\$(xdotool search --name 'Find within results' | head -n 1)
    xdotool windowactivate --sync \$f
    xdotool type --delay 30 'hope'
    xdotool key Return
    sleep 0.5
    xdotool key Return
    sleep 0.5
    xdotool key Return
    sleep 1
    import -window root '$out/find-within-results.png'
"
ls "$out"/search-window-new-testament.png "$out"/find-within-results.png
