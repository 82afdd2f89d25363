#!/usr/bin/env bash
# Tries a bundle for OpenFX hosts: try_openfx.sh BUNDLE OPENFX_HOST. It must find its module and the looks
# in its own folder, with nothing of the build's folders, and render frames.
set -euo pipefail
bundle=$(realpath "$1")
host=$(realpath "$2")
plug_in=$bundle/Contents/Linux-x86-64/V_Ruvex.ofx
for file in V_Ruvex.so libdssdk.so libdsvwr.so libil.so ../Resources/LICENSE ../Resources/looks/storm.json; do
    [ -s "$bundle/Contents/Linux-x86-64/$file" ] || { echo "$file is missing" >&2; exit 1; }
done
ldd "$plug_in" | grep -E 'libdssdk|libdsvwr|libil\.so' | grep -vF "$bundle" &&
    { echo "The plug-in loads libraries from elsewhere" >&2; exit 1; }
ldd "$plug_in" | grep -E 'lib(av|sw)' && { echo "The plug-in loads FFmpeg" >&2; exit 1; }

export XDG_DATA_HOME=$bundle/none
cd /
"$host" "$bundle" | grep 'Storm' >/dev/null || { echo "The looks are missing" >&2; exit 1; }
frames() {
    "$host" "$bundle" --size 128x96 --frames 0-1 "$@" | grep frame
}
[ "$(frames masterBreakup=0)" != "$(frames masterBreakup=90 snowMax=100)" ] ||
    { echo "The parameters do not act" >&2; exit 1; }
