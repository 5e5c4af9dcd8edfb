# Shared by the screenshot scripts (sourced, with $program set to the program folder): the
# packages they need, the user's window.ini kept and put back however the script ends, and a
# session that runs the program under a fresh X server with a window manager.

sh "$(dirname "$0")/setup.sh" xvfb xauth imagemagick xdotool openbox
# The program saves its placement and the verse box on closing; keep the user's settings.
saved_ini=$(mktemp)
cp "$program/window.ini" "$saved_ini"
trap 'cp "$saved_ini" "$program/window.ini"; rm -f "$saved_ini"' EXIT

# Sets "show" of the section "verseofday" (the shipped file has the section): 0 keeps the verse of
# the day from opening over the windows in the pictures.
verse_at_startup() {
    sed -i "/^\[verseofday\]/,/^\[/ s/^show=.*/show=$1\r/" "$program/window.ini"
}
verse_at_startup 0

# Runs the given shell steps with the program started and its main window in $main. Inside the
# steps, `front` brings the main window forward and `window TITLE` waits for a window, brings it
# forward and prints its id.
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
        # The main window is brought forward by steps that type into it.
        front() {
            xdotool windowactivate --sync \$main 2>/dev/null || true
            sleep 0.5
        }
        sleep 2
        $1
        kill \$app
    "
}
