#!/usr/bin/env bash
# Fails when a picture of the documents is not the one that the command draws now; says how to draw
# them anew.
# Usage: pictures_current.sh SOURCES COMMAND
set -euo pipefail
cd "$1"
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
RUVEX=$2 scripts/make-pictures "$folder"

# The pixels, whatever a PNG library makes of them.
pixels() {
    case $1 in
    *.png) ffmpeg -nostdin -v error -i "$1" -f framemd5 - | tail -n 1 ;;
    *) cat "$1" ;;
    esac
}
different=()
for picture in "$folder"/*; do
    name=$(basename "$picture")
    [ "$(pixels "$picture")" = "$(pixels "docs/pictures/$name")" ] || different+=("$name")
done
if [ ${#different[@]} -gt 0 ]; then
    echo "no longer what is drawn: ${different[*]}"
    echo "Look at what scripts/make-pictures draws, and commit it if it is right."
    exit 1
fi
[ "$(ls "$folder")" = "$(ls docs/pictures)" ] || { echo "docs/pictures holds other files"; exit 1; }
