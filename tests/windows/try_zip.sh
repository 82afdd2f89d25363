#!/usr/bin/env bash
# Tries the zip for Windows in a fresh Wine prefix: try_zip.sh ZIP PRINT_FRAMES_EXE NATIVE_PRINT_FRAMES
# OPENFX_HOST_EXE NATIVE_OPENFX_HOST NATIVE_BUNDLE.
# Extracts it into a folder with a blank and an umlaut, registers the module with the zip's own file,
# renders the named frames through COM with a program that lies elsewhere, and unregisters it. The
# frames have to have the bytes of the native build, and the registry has to be as it was. Then starts
# the zip's host program on an X server. The OpenFX bundle is tried before anything is registered.
set -euo pipefail
zip=$(realpath "$1")
frames=$(realpath "$2")
native=$(realpath "$3")
openfx_host=$(realpath "$4")
native_openfx_host=$(realpath "$5")
native_bundle=$(realpath "$6")
. "$(dirname "$0")/../../scripts/windows/wine.sh"

# run NAME STATUS TEXT FILE: a .cmd file, which must end with this status and print the text.
run() {
    local status=0
    windows 60 cmd /c "$(winepath -w "$4")" /quiet >"$own/$1.txt" || status=$?
    [ "$status" -eq "$2" ] && grep -q "$3" "$own/$1.txt" ||
        { cat "$own/$1.txt"; fail "$1 ended with status $status"; }
}

installedFiles() {
    find "$WINEPREFIX/drive_c/Program Files" | sort
}

# Every key and value of the registry, without times and without the system's own keys, some of which
# change by themselves.
registry() {
    # The registry's files are complete when the server has ended.
    stop_wine
    awk '/^\[/ { left_out = tolower($0) ~ /^\[(software\\\\(wow6432node\\\\)?microsoft|system|hardware)\\\\/
                 sub(/ [0-9]+$/, "") }
         /^#time=/ || left_out { next }
         { print }' "$WINEPREFIX"/{system,user}.reg
}

start_wine zip
use_no_screen
registry >"$own/before.reg"
installedFiles >"$own/before.files"

unzip -q "$zip" -d "$own/Mein Ordner für Bildstörungen"
folder=$(echo "$own/Mein Ordner für Bildstörungen"/*)
while read -r file; do
    ! grep -qv $'\r$' "$file" || fail "$file has lines without a carriage return"
done < <(find "$folder" -name '*.txt' -o -name '*.cmd')
for file in "$folder"/*.dll; do
    ! objdump -h "$file" | grep -q debug || fail "$file has debugging data"
done

# The bundle alone, far from the other files, by a host that lies elsewhere.
mkdir "$own/plug-ins"
mv "$folder/V_Ruvex.ofx.bundle" "$own/plug-ins"
for arguments in "" "--size 360x288 --frames 3-5 masterBreakup=70 snowMax=60 playSpeed=200"; do
    # shellcheck disable=SC2086
    windows 120 "$openfx_host" "$own/plug-ins/V_Ruvex.ofx.bundle" $arguments | tr -d '\r' >"$own/openfx.txt" ||
        { cat "$own/openfx.txt"; fail "the OpenFX bundle fails"; }
    # shellcheck disable=SC2086
    "$native_openfx_host" "$native_bundle" $arguments >"$own/openfx-native.txt"
    diff "$own/openfx-native.txt" "$own/openfx.txt" || fail "the OpenFX bundle differs (< native, > Windows)"
done

run absent 0 'V_Ruvex is not registered' "$folder/unregister.cmd"
mkdir "$own/alone"
cp "$folder/register.cmd" "$own/alone"
run incomplete 1 'Extract the whole zip file first' "$own/alone/register.cmd"
head -c 4096 "$folder/V_Ruvex.dll" >"$own/alone/V_Ruvex.dll"
run damaged 3 'could not be loaded' "$own/alone/register.cmd"
registry | diff "$own/before.reg" - || fail "the registry has changed before anything was registered"

# A manual, as a release may have one.
echo manual >"$folder/Documentation/Velmar4.3.pdf"
run registered 0 'V_Ruvex is registered' "$folder/register.cmd"
registry >"$own/registered.reg"
[ "$(grep -c '^"Module"=.*Mein Ordner f.*V_Ruvex.dll' "$own/registered.reg")" -eq 10 ] ||
    fail "the ten classes are not those of the extracted module"
cmp "$folder/Documentation/Velmar4.3.pdf" \
    "$WINEPREFIX/drive_c/Program Files/Osterlin/Velmar 4.3 for DS10 (64bit)/Documentation/Velmar4.3.pdf"

mkdir "$own/host"
cp "$frames" "$folder"/{il,dsvwr10,dssdk10}.dll "$own/host"
windows 900 "$own/host/print_frames.exe" >"$own/frames.txt" || fail "print_frames fails"
grep -q '^end: looks=' "$own/frames.txt" || fail "print_frames ended early"
"$native" >"$own/native.txt"
diff "$own/native.txt" "$own/frames.txt" || fail "the frames differ (< native, > Windows)"

run unregistered 0 'V_Ruvex is no longer registered' "$folder/unregister.cmd"
registry | diff "$own/before.reg" - || fail "the registry is not as it was"
installedFiles | diff "$own/before.files" - || fail "files are left"

# The host program, on a screen of its own: it shows the eight pages, and ends when it is closed.
start_wine shown
use_screen
run registered 0 'V_Ruvex is registered' "$folder/register.cmd"
windows 120 "$folder/page_host.exe" --report "$(winepath -w "$own/report.json")" >"$own/page_host.txt" &
host=$!
# page_host shows its window when all is ready; without a window manager, keys go where the pointer is.
timeout 60 xdotool search --sync --onlyvisible --name 'V_Ruvex' >/dev/null || fail "page_host shows no window"
xdotool mousemove 640 512
for _ in $(seq 100); do
    [ ! -e "$own/report.json" ] || break
    xdotool key F12
    sleep 0.2
done
[ "$(grep -c '^   "class": "{\?[0-9A-F-]*}\?"' "$own/report.json")" -eq 8 ] || fail "page_host does not show eight pages"
xdotool key alt+F4
wait "$host" || fail "page_host fails"
grep -q '^end: page_host' "$own/page_host.txt" || fail "page_host ended early"

echo "The zip's module renders $(grep -vc '^end: ' "$own/frames.txt") frames as the native build does."
