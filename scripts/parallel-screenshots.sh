#!/bin/sh
# Screenshots of the "Parallel" tab: the KJV, the WEB and the RV1909 side by side on Psalm 23, and
# two verse numberings lined up on Psalm 10 of the KJV, which a translation numbered as the
# Synodal counts as the second half of its Psalm 9.
#
# No translation in the Synodal's numbering ships with the program or with Debian, so the script
# makes one for the picture in a scratch program folder: the KJV's text of Psalms 9 and 10, numbered
# as the Synodal numbers it (the title as verse 1 of its own, Psalm 10 as Psalm 9:22-39), built into
# a SWORD module with osis2mod and imported as any module is. Its name says what it is: "SYNDEMO".
# Usage: scripts/parallel-screenshots.sh PROGRAM_FOLDER OUTPUT_FOLDER
set -eu
source_program=$(cd "$1" && pwd)
out=$(cd "$2" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
program=$scratch/program
mkdir -p "$program" "$scratch/sword/mods.d" "$scratch/sword/modules/texts/ztext/syndemo"
# Everything of the program folder as it is, but the settings the pictures change.
for path in "$source_program"/*; do
    ln -s "$path" "$program/$(basename "$path")"
done
rm "$program/window.ini"
cp "$source_program/window.ini" "$program/"

sh "$(dirname "$0")/setup.sh" libsword-utils

# Psalms 9 and 10 of the KJV in the Synodal's numbering.
python3 - "$source_program/KJV/oldtest/PSALMS.dat" "$scratch/syndemo.osis.xml" <<'EOF'
import sys
from xml.sax.saxutils import escape

lines = open(sys.argv[1], encoding="cp1252", newline="").read().split("\r\n")
chapters, current = {}, None
for line in lines:
    if line.upper().startswith("CHAPTER"):
        current = int(line[8:])
        chapters[current] = []
    elif current in (9, 10) and line:
        chapters[current].append(line.split(" ", 1)[1])
title, _, first = chapters[9][0].partition("David. ")
verses = [title + "David.", first] + chapters[9][1:] + chapters[10]
# Words in square brackets were added by the translators, as OSIS marks them.
added = {"[": '<transChange type="added">', "]": "</transChange>"}
body = "".join(f'<verse osisID="Ps.9.{n}">'
               + "".join(added.get(c, escape(c)) for c in text) + "</verse>"
               for n, text in enumerate(verses, start=1))
open(sys.argv[2], "w", encoding="utf-8").write(
    '<?xml version="1.0" encoding="UTF-8"?>\n'
    '<osis xmlns="http://www.bibletechnologies.net/2003/OSIS/namespace">'
    '<osisText osisIDWork="SYNDEMO" osisRefWork="Bible" xml:lang="en">'
    '<header><work osisWork="SYNDEMO"><refSystem>Bible.Synodal</refSystem></work></header>'
    f'<div type="book" osisID="Ps"><chapter osisID="Ps.9">{body}</chapter></div>'
    '</osisText></osis>\n')
EOF
osis2mod "$scratch/sword/modules/texts/ztext/syndemo" "$scratch/syndemo.osis.xml" -v Synodal -z z \
    >/dev/null
cat >"$scratch/sword/mods.d/syndemo.conf" <<'EOF'
[SYNDEMO]
DataPath=./modules/texts/ztext/syndemo/
ModDrv=zText
SourceType=OSIS
Encoding=UTF-8
Lang=en
Versification=Synodal
Description=KJV text of Psalms 9-10 in the Synodal numbering (demonstration)
CompressType=ZIP
BlockType=BOOK
EOF
"$source_program/quillstone-import" --module SYNDEMO --sword "$scratch/sword" --out "$program" >/dev/null

. "$(dirname "$0")/session.sh"
# The settings are the scratch folder's own: nothing to put back, only the scratch folder to go.
trap 'rm -rf "$scratch" "$saved_ini"' EXIT

# The window large enough for three columns, on the screen.
sed -i "/^\[main\]/,/^\[/ { s/^left=.*/left=600\r/; s/^top=.*/top=300\r/; s/^width=.*/width=18600\r/; s/^height=.*/height=12000\r/ }" \
    "$program/window.ini"

# Shows a passage, then the "Parallel" tab (the fourth, after Passage, Notes and TVC), and takes
# the window.
shoot() {
    if grep -q '^\[parallel\]' "$program/window.ini"; then
        sed -i "/^\[parallel\]/,/^\[/ s/^translations=.*/translations=$1\r/" "$program/window.ini"
    else
        printf '\r\n[parallel]\r\ntranslations=%s\r\n' "$1" >>"$program/window.ini"
    fi
    session "
        front
        xdotool key --window \$main alt+r
        xdotool type --delay 40 '$2'
        xdotool key Return
        sleep 1
        eval \$(xdotool getwindowgeometry --shell \$main)
        xdotool mousemove --window \$main \$((WIDTH * 2 / 3)) \$((HEIGHT / 2)) click 1
        for i in 1 2 3; do xdotool key ctrl+Tab; sleep 0.5; done
        sleep 1.5
        import -window \$main '$out/$3'
    "
}
shoot KJV,WEB,RV1909 'Psalm 23' parallel-psalm23.png
shoot KJV,SYNDEMO 'Psalm 10' parallel-psalm10.png
ls "$out/parallel-psalm23.png" "$out/parallel-psalm10.png"
