#!/bin/sh
# Screenshots of what the Search window shows of its results: a query of the query language with
# the words it found marked in the list and the chart of hits per book under it, the list kept to
# one book by a click on its bar, a result opened in the main window with its words marked, and the
# results exported as CSV and opened as text, and the same query over two translations.
# Usage: scripts/search-results-screenshots.sh PROGRAM_FOLDER OUTPUT_FOLDER
set -eu
program=$1
out=$(cd "$2" && pwd)
. "$(dirname "$0")/session.sh"
# xmessage shows the exported file as plain text.
sh "$(dirname "$0")/setup.sh" x11-utils
# Every book chosen to begin with.
sed -i "/^\[search\]/,/^\[/ s/^books=.*/books=\r/" "$program/window.ini"
csv=$(mktemp -d)/found.csv

session "
    front
    # Tools, Bible Search.
    xdotool key alt+o s
    w=\$(window '^Search\$')
    xdotool windowmove --sync \$w 40 40
    xdotool windowsize --sync \$w 1100 720
    sleep 1
    # The Query mode, the query.
    xdotool key alt+q
    xdotool key alt+s
    xdotool type --delay 30 '(faith OR hope) lov* -fear'
    xdotool key Return
    sleep 2
    import -window \$w '$out/search-query-marked.png'

    # A click on the bar of Ephesians keeps the list to that book.
    xdotool mousemove --window \$w 893 540 click 1
    sleep 1
    import -window \$w '$out/search-chart-one-book.png'

    # The second verse listed shown in the main window, its words marked.
    xdotool mousemove --window \$w 600 80 click 1
    sleep 0.5
    xdotool key alt+v
    sleep 1
    front
    sleep 1
    import -window \$main '$out/search-result-in-passage.png'

    # Every book again, then Export as CSV.
    xdotool windowactivate --sync \$w
    sleep 0.5
    xdotool key alt+k
    sleep 0.5
    xdotool key alt+e
    sleep 1.5
    d=\$(window 'Export Results')
    xdotool key ctrl+a
    xdotool type --delay 20 '$csv'
    xdotool key Return
    sleep 1.5
    # Shown as the file reads, but for the CR of each CR LF line end, which xmessage would show as ^M.
    tr -d '\\r' < '$csv' > '$csv.shown'
    xmessage -title found.csv -fn 7x13 -geometry 1240x600+10+10 -file '$csv.shown' &
    sleep 1.5
    x=\$(window 'found.csv')
    import -window root -crop 1260x640+0+0 '$out/search-results-csv.png'
    kill %% 2>/dev/null || true

    # The World English Bible ticked as well: each reference's verses together.
    xdotool windowactivate --sync \$w
    sleep 0.5
    xdotool key alt+t Home Down Down space
    xdotool key alt+s
    xdotool key Return
    sleep 2
    import -window \$w '$out/search-two-translations.png'
"
ls "$out"/search-query-marked.png "$out"/search-chart-one-book.png \
    "$out"/search-result-in-passage.png "$out"/search-results-csv.png \
    "$out"/search-two-translations.png
rm -rf "$(dirname "$csv")"
