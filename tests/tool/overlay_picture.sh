#!/usr/bin/env bash
# Tries the tool that draws a frame with the crop box: its picture, and what it says to wrong input.
# Usage: overlay_picture.sh TOOL MODULE PICTURE
set -euo pipefail
tool=$1
module=$2
picture=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# expect STATUS ARGUMENT...: the tool ends with this status, and with a message for another than 0.
expect() {
    local wanted=$1 status=0
    shift
    "$tool" "$@" 2>"$work/message" || status=$?
    if [ "$status" -ne "$wanted" ] || { [ "$wanted" -ne 0 ] && [ ! -s "$work/message" ]; }; then
        echo "status $status instead of $wanted for: $*" >&2
        cat "$work/message" >&2
        exit 1
    fi
}
# white FILE: how many of 200 pixels of the left line are white.
white() {
    ffmpeg -nostdin -v error -i "$1" -vf crop=1:200:92:30 -f rawvideo -pix_fmt rgb24 - |
        od -An -v -tx1 -w3 | grep -c 'ff ff ff' || true
}

# The line at 25 % of 320 pixels: column 80, behind a margin of 12.
left=(--set "Crop Left=25")
expect 0 "$module" "$picture" "$work/plain.png" "${left[@]}"
expect 0 "$module" "$picture" "$work/hovered.png" "${left[@]}" --pen 25 50
expect 0 "$module" "$picture" "$work/pressed.png" "${left[@]}" --pen 25 50 --press
[ "$(white "$work/plain.png")" -eq 0 ]
hovered=$(white "$work/hovered.png")
[ "$hovered" -ge 96 ] && [ "$hovered" -le 104 ]
[ "$(white "$work/pressed.png")" -eq 200 ]

expect 2
expect 2 "$module" "$picture"
expect 2 "$module" "$picture" "$work/x.png" --unknown
expect 2 "$module" "$picture" "$work/x.png" --pen 5
expect 2 "$module" "$picture" "$work/x.png" --pen a b
expect 2 "$module" "$picture" "$work/x.png" --press
expect 2 "$module" "$picture" "$work/x.png" --pen 1 2 --to 3 4
expect 2 "$module" "$picture" "$work/x.png" --set "Crop Left"
expect 2 "$module" "$picture" "$work/x.png" --set "No Such=1"
expect 2 "$module" "$picture" "$work/x.png" --set "Crop Left=many"
expect 1 "$work/none.so" "$picture" "$work/x.png"
expect 1 "$module" "$work/none.png" "$work/x.png"
expect 1 "$module" "$picture" "$work/none/x.png"
[ ! -e "$work/x.png" ]
