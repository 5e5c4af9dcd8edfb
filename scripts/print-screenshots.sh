#!/bin/sh
# Pictures of printing Psalm 119: the print preview as a reader sees it, and page 1 of the PDF.
# Usage: scripts/print-screenshots.sh PROGRAM_FOLDER OUTDIR
# The helper print_psalm119 is built beside the tests (build/tests, next to build/program).
set -eu
program=$(cd "$1" && pwd)
out=$2
helper=${PRINT_PSALM119:-$program/../tests/print_psalm119}
mkdir -p "$out"
sh "$(dirname "$0")/setup.sh" xvfb xauth imagemagick xdotool openbox poppler-utils

pdf=$(mktemp --suffix=.pdf)
trap 'rm -f "$pdf"' EXIT
QT_QPA_PLATFORM=offscreen "$helper" "$program" --pdf "$pdf"
pdftoppm -r 60 -png -singlefile -f 1 "$pdf" "$out/print-psalm119-page1"

xvfb-run -a -s "-screen 0 1280x900x24" sh -c "
    openbox >/dev/null 2>&1 &
    sleep 1
    '$helper' '$program' >/dev/null 2>&1 &
    app=\$!
    for i in 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15; do
        wid=\$(xdotool search --name '^Print Preview' 2>/dev/null | head -n 1)
        [ -n \"\$wid\" ] && break
        sleep 1
    done
    xdotool windowactivate --sync \$wid 2>/dev/null || true
    sleep 2
    import -window \$wid '$out/print-preview.png'
    kill \$app
"
echo "$out/print-preview.png $out/print-psalm119-page1.png"
