#!/bin/sh
# Installs the build into a scratch DESTDIR, validates the desktop entry and the AppStream
# metainfo, and runs the installed quillstone-cli as a user with a data folder of their own: the
# program folder appears there, linked to the installed data, and nothing is written under /usr.
# usage: install_test.sh BUILD_DIR
set -eu
build=$1
dest=$(mktemp -d)
trap 'rm -rf "$dest"' EXIT
fail() { echo "FAIL: $*"; exit 1; }

DESTDIR=$dest cmake --install "$build" --prefix /usr >/dev/null
share=$dest/usr/share
desktop-file-validate "$share/applications/org.quillstone.quillstone.desktop" || fail "desktop entry"
appstreamcli validate --no-net --pedantic "$share/metainfo/org.quillstone.quillstone.metainfo.xml" >/dev/null ||
    fail "metainfo"
for f in icons/hicolor/scalable/apps/org.quillstone.quillstone.svg man/man1/quillstone.1 \
         man/man1/quillstone-cli.1 man/man1/quillstone-import.1 quillstone/KJV/bible.dat quillstone/window.ini; do
    test -f "$share/$f" || fail "$f is not installed"
done
test ! -e "$share/quillstone/quillstone" || fail "an executable among the data"

touch "$dest/.installed"
export HOME="$dest/home" XDG_DATA_HOME="$dest/home/data"
unset QUILLSTONE_DIR
cli="$dest/usr/bin/quillstone-cli"
"$cli" --translation KJV passage "John 3:16" | grep -q "God so loved the world" || fail "John 3:16"
"$cli" check KJV >/dev/null || fail "check KJV"
test "$("$cli" map --translations WEB,KJV "3 John 1:15")" = "3JOHN 1:14" || fail "map WEB,KJV"
folder=$XDG_DATA_HOME/quillstone
test -L "$folder/KJV" && test "$(readlink "$folder/KJV")" = "$share/quillstone/KJV" || fail "KJV is not linked"
test -f "$folder/window.ini" && test ! -L "$folder/window.ini" || fail "window.ini is not the user's own"
test -d "$folder/notes" && test ! -L "$folder/notes" || fail "notes are not the user's own"
"$cli" bookmarks add Psalm "Psalm 23" >/dev/null || fail "a bookmark cannot be added"
grep -q Psalm "$folder/bookmarks.dat" || fail "the bookmark is not in the user's folder"
"$cli" bookmarks | grep -q "PSALMS 23" || fail "the next start does not keep the user's bookmarks"
test -z "$(find "$dest/usr" -newer "$dest/.installed")" || fail "written under /usr: $(find "$dest/usr" -newer "$dest/.installed")"
echo "installed and ran as a user: ok"
