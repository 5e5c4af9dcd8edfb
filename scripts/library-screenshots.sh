#!/bin/sh
# Screenshots of the reading aids as a reader reaches them from the References menu (Alt+N):
# the verse of the day over the main window at start-up, a topic shown in the main window, the
# feeding of the five thousand in each gospel's tab, a prophecy beside its fulfilment, and the
# units table.
# Usage: scripts/library-screenshots.sh PROGRAM_FOLDER OUTPUT_FOLDER
set -eu
program=$1
out=$(cd "$2" && pwd)
. "$(dirname "$0")/session.sh"

# Opens an entry of the References menu (Alt+N) by its key.
reference_steps() {
    printf '%s' "front; xdotool key alt+n $1; sleep 1"
}

verse_at_startup 1
session "import -window root '$out/verse-of-the-day-at-startup.png'"

verse_at_startup 0
session "
    $(reference_steps t)
    w=\$(window 'Bible Topics')
    xdotool type --delay 30 'Love: Instances of Love for Jesus: Mary'
    sleep 1
    xdotool key alt+F4
    sleep 1
    import -window \$main '$out/topic-in-main-window.png'
"

session "
    $(reference_steps m)
    w=\$(window 'Miracles of Jesus Christ')
    xdotool type --delay 30 'Five thousand'
    sleep 1
    # Into the gospel's text, where Ctrl+Tab goes on to the next gospel.
    eval \$(xdotool getwindowgeometry --shell \$w)
    xdotool mousemove --window \$w \$((WIDTH * 3 / 4)) \$((HEIGHT * 3 / 4)) click 1
    sleep 0.5
    for gospel in matthew mark luke john; do
        import -window \$w /tmp/qs-five-thousand-\$gospel.png
        xdotool key ctrl+Tab
        sleep 0.5
    done
"
montage /tmp/qs-five-thousand-matthew.png /tmp/qs-five-thousand-mark.png \
    /tmp/qs-five-thousand-luke.png /tmp/qs-five-thousand-john.png \
    -tile 2x2 -geometry +6+6 "$out/feeding-of-five-thousand.png"
rm -f /tmp/qs-five-thousand-*.png

session "
    $(reference_steps p)
    w=\$(window 'Prophecies and their Fulfilment')
    xdotool type --delay 30 'Born in Bethlehem'
    sleep 1
    import -window \$w '$out/prophecy-and-fulfilment.png'
"

session "
    $(reference_steps u)
    import -window \$main '$out/units-table.png'
"
ls "$out"
