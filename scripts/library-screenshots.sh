#!/bin/sh
# Screenshots of the reading aids as a reader reaches them from the References menu (Alt+N):
# the verse of the day over the main window at start-up, a topic shown in the main window, the
# feeding of the five thousand in each gospel's tab, a prophecy beside its fulfilment, and the
# units table.
# Usage: scripts/library-screenshots.sh PROGRAM_FOLDER OUTPUT_FOLDER
set -eu
program=$1
out=$(cd "$2" && pwd)
sh "$(dirname "$0")/setup.sh" xvfb xauth imagemagick xdotool openbox
# The program saves its placement and the verse box; keep the user's settings as they were.
saved=$(mktemp)
cp "$program/window.ini" "$saved"
trap 'cp "$saved" "$program/window.ini"; rm -f "$saved"' EXIT

# Sets "show" of the section "verseofday" (the shipped file has the section).
verse_at_startup() {
    sed -i "/^\[verseofday\]/,/^\[/ s/^show=.*/show=$1\r/" "$program/window.ini"
}

# Runs the program under a fresh X server with the given shell steps; $main is the main window.
session() {
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
        # Waits for a window by its title and brings it forward.
        window() {
            for i in 1 2 3 4 5 6 7 8 9 10; do
                w=\$(xdotool search --name \"\$1\" 2>/dev/null | head -n 1)
                [ -n \"\$w\" ] && break
                sleep 0.5
            done
            xdotool windowactivate --sync \$w 2>/dev/null || true
            sleep 1
            echo \$w
        }
        reference() {
            xdotool windowactivate --sync \$main 2>/dev/null || true
            xdotool key alt+n \$1
            sleep 1
        }
        sleep 2
        $1
        kill \$app
    "
}

verse_at_startup 1
session "import -window root '$out/verse-of-the-day-at-startup.png'"

verse_at_startup 0
session "
    reference t
    w=\$(window 'Bible Topics')
    xdotool type --delay 30 'Love: Instances of Love for Jesus: Mary'
    sleep 1
    xdotool key alt+F4
    sleep 1
    import -window \$main '$out/topic-in-main-window.png'
"

session "
    reference m
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
    reference p
    w=\$(window 'Prophecies and their Fulfilment')
    xdotool type --delay 30 'Born in Bethlehem'
    sleep 1
    import -window \$w '$out/prophecy-and-fulfilment.png'
"

session "
    reference u
    import -window \$main '$out/units-table.png'
"
ls "$out"
