#!/bin/sh
# Screenshots of searching as a reader does it: the Search window (Tools, Bible Search) after an
# all-words search over the New Testament, and the Find dialog (Edit, Find) stepping through the
# quick search's results.
# Usage: scripts/search-screenshots.sh PROGRAM_FOLDER OUTPUT_FOLDER
set -eu
program=$1
out=$(cd "$2" && pwd)
sh "$(dirname "$0")/setup.sh" xvfb xauth imagemagick xdotool openbox
saved=$(mktemp)
cp "$program/window.ini" "$saved"
trap 'cp "$saved" "$program/window.ini"; rm -f "$saved"' EXIT
# The verse of the day would open over the windows: not for these pictures.
sed -i "/^\[verseofday\]/,/^\[/ s/^show=.*/show=0\r/" "$program/window.ini"
# Every book chosen to begin with; the New Testament box is ticked by the script.
sed -i "/^\[search\]/,/^\[/ s/^books=.*/books=\r/" "$program/window.ini"

xvfb-run -a -s "-screen 0 1280x860x24" sh -c "
    openbox >/dev/null 2>&1 &
    sleep 1
    '$program/quillstone' --dir '$program' >/dev/null 2>&1 &
    app=\$!
    for i in 1 2 3 4 5 6 7 8 9 10; do
        main=\$(xdotool search --name ' - Quillstone Bible ' 2>/dev/null | head -n 1)
        [ -n \"\$main\" ] && break
        sleep 1
    done
    sleep 1
    xdotool windowactivate --sync \$main
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
    kill \$app
"
ls "$out"/search-window-new-testament.png "$out"/find-within-results.png
