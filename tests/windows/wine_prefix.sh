# A Windows of a script's own, under Wine, without a display. To be sourced: then `makePrefix`, and at the
# end of the script `removePrefix`. The folder `own` is there for temporary files.

makePrefix() {
    own=$(mktemp -d)
    # Wine puts a folder into the folder for temporary files and leaves it there.
    export WINEPREFIX=$own/prefix TMPDIR=$own/tmp WINEDEBUG=-all LC_ALL=C.UTF-8
    export WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe="
    unset DISPLAY
    mkdir "$WINEPREFIX" "$TMPDIR"
    timeout 300 wineboot -i >/dev/null 2>&1 || return 1
    # A program that crashes ends at once, with a status that says so, and opens no window.
    windows 60 reg add 'HKLM\Software\Microsoft\Windows NT\CurrentVersion\AeDebug' \
        /v Debugger /d '' /f >/dev/null
    windows 60 reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f >/dev/null
    windows 60 reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f >/dev/null
    stopWine
}

# The registry's files are complete when the server has ended.
stopWine() {
    wineserver -k || true
    wineserver -w || true
}

removePrefix() {
    stopWine
    rm -rf "$own"
}

# windows SECONDS PROGRAM ARGUMENT...: its output, with this system's line ends.
windows() {
    local seconds=$1
    shift
    timeout "$seconds" wine "$@" </dev/null | tr -d '\r'
}

# Every key and value of the registry, without times and without the system's own keys, some of which
# change by themselves.
registry() {
    stopWine
    awk '/^\[/ { left_out = tolower($0) ~ /^\[(software\\\\(wow6432node\\\\)?microsoft|system|hardware)\\\\/
                 sub(/ [0-9]+$/, "") }
         /^#time=/ || left_out { next }
         { print }' "$WINEPREFIX"/{system,user}.reg
}
