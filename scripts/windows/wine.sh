# Functions that run Windows programs in a Wine prefix of their own, without a screen or on an X
# server of their own. Sourced by scripts that set `out`, the folder for logs, before the first call.

own=$(mktemp -d)
screen_process=
# Wine puts a folder into the folder for temporary files and leaves it there.
export TMPDIR=$own/tmp WINEDEBUG=-all LC_ALL=C.UTF-8
export WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe="
mkdir "$TMPDIR"
unset DISPLAY WINEPREFIX
trap clean_up EXIT

fail() {
    echo "$(basename "$0"): $*" >&2
    exit 1
}

clean_up() {
    stop_wine
    [ -z "$screen_process" ] || kill "$screen_process" || true
    rm -rf "$own"
}

# Ends the programs of the present prefix, and of no other one.
stop_wine() {
    [ -n "${WINEPREFIX:-}" ] || return 0
    wineserver -k || true
    wineserver -w || true
}

# start_wine NAME: a new prefix, which the programs use from then on.
start_wine() {
    stop_wine
    export WINEPREFIX=$own/$1
    mkdir "$WINEPREFIX"
    timeout 300 wineboot -i >/dev/null 2>&1 || fail "Wine does not start"
    # A program that crashes ends at once, with a status that says so, and opens no window.
    windows 60 reg add 'HKLM\Software\Microsoft\Windows NT\CurrentVersion\AeDebug' \
        /v Debugger /d '' /f >/dev/null
    windows 60 reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f >/dev/null
}

# The desktop reads which driver it has when it starts; windows need one, and "null" draws nothing.
use_no_screen() {
    windows 60 reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f >/dev/null
    stop_wine
}

# An X server with a free number, without a window manager. The dialogs' font is Arial; Liberation
# Sans has its widths.
use_screen() {
    Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$own/display" 2>/dev/null &
    screen_process=$!
    local tries=0
    until [ -s "$own/display" ]; do
        tries=$((tries + 1))
        [ "$tries" -le 100 ] || fail "the X server does not start"
        sleep 0.1
    done
    DISPLAY=:$(cat "$own/display")
    export DISPLAY
    cp /usr/share/fonts/truetype/liberation/LiberationSans-*.ttf "$WINEPREFIX/drive_c/windows/Fonts/"
    stop_wine
}

# windows SECONDS PROGRAM ARGUMENT...: its output, with this system's line ends.
windows() {
    local seconds=$1
    shift
    timeout "$seconds" wine "$@" </dev/null | tr -d '\r'
}

# check NAME SECONDS PROGRAM ARGUMENT...: its status has to be 0, and its last line the one that it
# prints at its very end, since a program that crashes under Wine can have a status of 0.
check() {
    local log=$out/$1.txt name=$1 status=0
    shift
    windows "$@" >"$log" || status=$?
    tail -n 1 "$log"
    [ "$status" -eq 0 ] || { cat "$log"; fail "$name ended with status $status"; }
    tail -n 1 "$log" | grep -q '^end: ' || { cat "$log"; fail "$name ended early"; }
}
