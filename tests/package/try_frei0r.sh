#!/usr/bin/env bash
# Tries the frei0r plug-in of an installation in ffmpeg: try_frei0r.sh PREFIX. It must find its module and
# the looks from where it lies, with nothing of the build's folders.
set -euo pipefail
prefix=$(realpath "$1")
for file in lib/frei0r-1/ruvex.so lib/ruvex/V_Ruvex.so share/kdenlive/effects/frei0r_ruvex.xml \
        share/ruvex/looks/storm.json; do
    [ -s "$prefix/$file" ] || { echo "$file is missing" >&2; exit 1; }
done
# A build with a sanitizer cannot be loaded by a host without it.
! ldd "$prefix/lib/frei0r-1/ruvex.so" | grep -qE 'lib[at]san' || exit 0
ldd "$prefix/lib/frei0r-1/ruvex.so" | grep -E 'libdssdk|libil\.so' |
    grep -vF "$prefix" && { echo "The plug-in loads libraries from elsewhere" >&2; exit 1; }

export FREI0R_PATH=$prefix/lib/frei0r-1 XDG_DATA_HOME=$prefix/none
frame() {
    ffmpeg -nostdin -v error -f lavfi -i testsrc2=size=128x96:rate=25 -vf "$1" -frames:v 1 -f rawvideo -pix_fmt rgba - 2>&1 | md5sum
}
[ "$(frame format=rgba,frei0r=ruvex:Clean,format=rgba)" = "$(frame format=rgba)" ] ||
    { echo "The look Clean changes the picture, or was not found" >&2; exit 1; }
storm=$(frame format=rgba,frei0r=ruvex:storm)
[ "$storm" != "$(frame format=rgba)" ] && [ "$storm" != "$(frame format=rgba,frei0r=ruvex)" ] ||
    { echo "The look Storm does not act" >&2; exit 1; }
