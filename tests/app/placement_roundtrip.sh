#!/bin/sh
# The main window under a real window manager: opened and closed with File, Exit three times
# without being touched, it leaves the "main" section of window.ini exactly as it was; a
# placement that would put it off the screen is moved onto the screen.
# Usage: placement_roundtrip.sh QUILLSTONE PROGRAM_FOLDER
set -eu
exe=$1
source=$2
for tool in xvfb-run openbox xdotool; do
    command -v $tool >/dev/null || { echo "$tool is not installed (make test installs it)"; exit 1; }
done
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp -r "$source/KJV" "$source/general.cfg" "$source/display.cfg" "$work/"
# Without it the program would first tell that it repaired the missing file.
: > "$work/bookmarks.dat"
printf '[]\r\nrememberwindowsetting=1\r\n[load]\r\nversion=KJV\r\nautoload=1\r\n[main]\r\nwindowstate=0\r\nleft=1200\r\ntop=900\r\nwidth=15000\r\nheight=10800\r\nsplit0=2520\r\nsplit1=3460\r\n' > "$work/window.ini"

main_section() { sed -n '/^\[main\]/,/^\[/p' "$work/window.ini" | tr -d '\r' | grep -v '^\['; }

cat > "$work/session.sh" <<'SCRIPT'
#!/bin/sh
# Runs inside the X server: a window manager, then the program RUNS times, closed by File, Exit.
exe=$1; folder=$2; runs=$3
openbox >/dev/null 2>&1 &
sleep 1
i=0
while [ $i -lt $runs ]; do
    i=$((i + 1))
    "$exe" --dir "$folder" >/dev/null 2>&1 &
    app=$!
    wid=""
    for t in $(seq 1 50); do
        wid=$(xdotool search --name ' - Quillstone Bible ' 2>/dev/null | head -n 1)
        [ -n "$wid" ] && break
        sleep 0.2
    done
    [ -n "$wid" ] || { echo "run $i: no window"; exit 1; }
    sleep 1.5
    eval $(xdotool getwindowgeometry --shell "$wid")
    echo "run $i: window at $X,$Y size ${WIDTH}x$HEIGHT"
    xdotool windowactivate --sync "$wid" 2>/dev/null || true
    xdotool key --window "$wid" alt+f
    sleep 0.3
    xdotool key x
    for t in $(seq 1 50); do kill -0 $app 2>/dev/null || break; sleep 0.2; done
    if kill $app 2>/dev/null; then echo "run $i: File, Exit did not end the program"; exit 1; fi
done
SCRIPT

before=$(main_section)
xvfb-run -a -s "-screen 0 1440x900x24" sh "$work/session.sh" "$exe" "$work" 3
after=$(main_section)
if [ "$before" != "$after" ]; then
    echo "window.ini [main] changed:"; echo "$before"; echo "--- became"; echo "$after"
    exit 1
fi

# Off the bottom of a 900-pixel screen: moved up onto it.
sed -i 's/^top=900\r$/top=12000\r/' "$work/window.ini"
xvfb-run -a -s "-screen 0 1440x900x24" sh "$work/session.sh" "$exe" "$work" 1
top=$(main_section | sed -n 's/^top=//p')
height=$(main_section | sed -n 's/^height=//p')
if [ $((top + height)) -gt $((900 * 15)) ]; then
    echo "window saved off the screen: top=$top height=$height"; exit 1
fi
