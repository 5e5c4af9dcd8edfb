#!/bin/sh
# A disk that fills during a save: notes and bookmarks are saved into a program folder on a small
# memory file system that is full. The save fails with the system's reason, the old file is whole
# and no temporary file is left. The file system is mounted in a namespace of the test's own, so
# no privileges are needed where user namespaces are allowed; elsewhere the test is skipped.
# Usage: disk_full.sh QUILLSTONE_CLI
set -eu
cli=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
if ! unshare -rm sh -c "mount -t tmpfs -o size=64k tmpfs '$work'" 2>/dev/null; then
    echo "no mount namespace here: skipped"
    exit 77
fi

cat > "$work/inside.sh" <<'SCRIPT'
set -eu
cli=$1; work=$2
folder=$work/full
mkdir "$folder"
mount -t tmpfs -o size=64k tmpfs "$folder"
crlf() { printf '%s\r\n' "$@"; }
mkdir -p "$folder/T/oldtest" "$folder/T/newtest" "$folder/notes/oldtest"
crlf "Test" "Old" "New" > "$folder/T/bible.dat"
crlf '"Genesis",1' > "$folder/T/oldtest/map.dat"
crlf '"John",1' > "$folder/T/newtest/map.dat"
crlf "x" "CHAPTER 1" "1 In the beginning" > "$folder/T/oldtest/GENESIS.dat"
crlf "x" "CHAPTER 1" "1 In the beginning was the Word" > "$folder/T/newtest/JOHN.dat"
crlf "[load]" "version=T" > "$folder/window.ini"
crlf "CHAPTER 1" "old notes" > "$folder/notes/oldtest/GENESIS.dat"
i=0
while [ $i -lt 300 ]; do crlf "\"Bookmark $i\",\"John 1:1\""; i=$((i + 1)); done > "$folder/bookmarks.dat"
cp "$folder/notes/oldtest/GENESIS.dat" "$work/notes.before"
cp "$folder/bookmarks.dat" "$work/bookmarks.before"
# New notes larger than the room left, then the disk filled to the last block.
head -c 40000 /dev/zero | tr '\0' 'n' > "$work/notes.txt"
dd if=/dev/zero of="$folder/filler" bs=1k count=64 2>/dev/null || true

status=0
"$cli" --dir "$folder" notes --set "$work/notes.txt" "Gen 1" 2> "$work/notes.err" || status=$?
[ $status -eq 1 ] || { echo "notes --set ended with $status"; exit 1; }
grep -q "No space left on device" "$work/notes.err" || { echo "notes: no reason given:"; cat "$work/notes.err"; exit 1; }
cmp -s "$folder/notes/oldtest/GENESIS.dat" "$work/notes.before" || { echo "the notes file changed"; exit 1; }

# Room for a little, not for the bookmark file written again.
rm "$folder/filler"
dd if=/dev/zero of="$folder/filler" bs=1k count=40 2>/dev/null || true
dd if=/dev/zero of="$folder/filler2" bs=1k count=64 2>/dev/null || true
status=0
"$cli" --dir "$folder" bookmarks add "One more" "John 1:1" > "$work/bookmarks.out" 2>&1 || status=$?
[ $status -ne 0 ] || { echo "bookmarks add succeeded on a full disk"; exit 1; }
grep -q "No space left on device" "$work/bookmarks.out" || { echo "bookmarks: no reason given:"; cat "$work/bookmarks.out"; exit 1; }
cmp -s "$folder/bookmarks.dat" "$work/bookmarks.before" || { echo "bookmarks.dat changed"; exit 1; }

left=$(find "$folder" -name '*.temp')
[ -z "$left" ] || { echo "temporary files left: $left"; exit 1; }
echo "disk full: both saves refused with the system's reason, files whole, nothing left behind"
SCRIPT
unshare -rm sh "$work/inside.sh" "$cli" "$work"
