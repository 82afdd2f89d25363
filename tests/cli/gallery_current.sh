#!/usr/bin/env bash
# Fails when a picture of the gallery is not what the command draws now, is in none of the documents,
# or is too large; and when a look has no picture.
# Usage: gallery_current.sh SOURCES COMMAND
set -euo pipefail
cd "$1"
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
RUVEX=$2 scripts/make-gallery "$folder"

failed=0
complain() {
    echo "$1"
    failed=1
}
# How close two JPEG files are, in decibels. Other encoders and decoders cost a little; another
# grain of noise costs more than half.
closeness() {
    ffmpeg -nostdin -v info -i "$1" -i "$2" -lavfi psnr -f null - 2>&1 |
        sed -n 's/.*average:\([0-9.inf]*\).*/\1/p'
}
for picture in "$folder"/*.jpg; do
    name=$(basename "$picture")
    [ -f "docs/gallery/$name" ] || { complain "$name is not in docs/gallery"; continue; }
    close=$(closeness "$picture" "docs/gallery/$name")
    awk -v c="$close" 'BEGIN { exit !(c == "inf" || c + 0 > 40) }' ||
        complain "$name is no longer what is drawn: $close dB"
    grep -qF -e "]($name)" -e "](docs/gallery/$name)" docs/gallery/README.md docs/gallery/looks.md README.md ||
        complain "$name is in no document"
    [ "$(stat -c %s "docs/gallery/$name")" -lt 100000 ] || complain "$name is too large"
done
[ "$(ls "$folder")" = "$(cd docs/gallery && ls -- *.jpg)" ] || complain "docs/gallery holds other pictures"
[ "$(cat docs/gallery/*.jpg | wc -c)" -lt 2700000 ] || complain "docs/gallery is too large"
for look in looks/library/*.json; do
    name=$(basename "$look" .json)
    [ -f "docs/gallery/look-$name.jpg" ] || complain "the look $name has no picture"
    title=$(sed -n 's/^  "name": "\(.*\)",$/\1/p' "$look")
    grep -qF "**$title**" docs/gallery/looks.md || complain "the look $title has no sentence"
done
[ "$failed" -eq 0 ] || echo "Look at what scripts/make-gallery draws, and commit it if it is right."
exit "$failed"
