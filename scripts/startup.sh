#!/bin/sh
# Start-up against its floor: the program from exec to its main window painted on the KJV, beside
# a bare Qt program that shows one rich-text view, both under Xvfb with a window manager, in one
# hyperfine run. Usage: scripts/startup.sh [BUILD_DIR]
set -eu
build=${1:-build}
sh "$(dirname "$0")/setup.sh" xvfb xauth openbox hyperfine
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# A copy of the settings, so the measurement neither reads nor changes the user's.
for f in general.cfg display.cfg bookmarks.dat window.ini; do cp "$build/program/$f" "$work/"; done
ln -s "$(cd "$build/program" && pwd)/KJV" "$work/KJV"
sed -i 's/^show=.*/show=0\r/' "$work/window.ini"
export QUILLSTONE_QUIT_AFTER_START=1
xvfb-run -a -s "-screen 0 1280x860x24" sh -c "
    openbox >/dev/null 2>&1 &
    sleep 1
    hyperfine --warmup 3 --runs 30 --export-markdown '$work/result.md' \
        '$build/bench/bare_window' '$build/program/quillstone --dir $work KJV'
"
cat "$work/result.md"
