#!/usr/bin/env bash
# Draws the scripted states twice, in one order and in the reverse one: a state that depends on those
# before it differs. Then it damages the pictures in every way that the comparison has to notice.
# Usage: overlay_states.sh PROGRAM
set -euo pipefail
program=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
a=$work/a b=$work/b

fail() {
    echo "$*" >&2
    cat "$work/log" >&2
    exit 1
}
equal() { "$program" --compare "$a" "$b" >"$work/log" && grep -q '^end: ' "$work/log"; }
# differs TEXT: the comparison fails and says so.
differs() {
    if equal; then fail "not noticed: $1"; fi
    grep -qF -- "$1" "$work/log" || fail "not said: $1"
}
# Both folders as they were drawn.
restore() {
    rm -rf "$a" "$b"
    cp -r "$work/drawn" "$a"
    cp -r "$work/reversed" "$b"
}
# setPixel FILE X Y: makes one pixel white, from the left and the bottom of 257 by 257.
setPixel() {
    local header=15 # "P6", "257 257" and "255", each with its line end
    printf '\377\377\377' | dd of="$1" bs=1 conv=notrunc status=none \
        seek=$((header + 3 * ((256 - $3) * 257 + $2)))
}
# endOf FOLDER: writes the last line anew.
endOf() {
    sed -i '/^end: /d' "$1/states.txt"
    echo "end: overlay_states $(grep -c '^state ' "$1/states.txt")" >>"$1/states.txt"
}

"$program" "$work/drawn" >"$work/log"
[ "$(tail -n 1 "$work/log")" = "$(tail -n 1 "$work/drawn/states.txt")" ] || fail "the list is not printed"
"$program" --reversed "$work/reversed" >"$work/log"
restore
equal || fail "the states depend on their order"

# penActs PLAIN PREFIX: the pictures of this prefix show that the pen is over the control or was.
penActs() {
    local picture
    for picture in "$a/$2"-{hover,press,drag,dragged}-*.ppm; do
        [ -e "$picture" ] || continue
        if cmp -s "$picture" "$a/$1.ppm"; then fail "the pen does nothing in $picture"; fi
    done
}
penActs crop-inside crop
penActs axis-all axis
penActs rectangle rectangle

setPixel "$b/lines.ppm" 10 250
differs "lines: 1 pixels differ, the first (10, 250) from the left and the bottom: (64, 64, 64) and (255, 255, 255)"
restore

# A pixel of the text is not compared.
setPixel "$b/text.ppm" 60 130
equal || fail "text is compared"
setPixel "$b/text.ppm" 60 200
differs "text: 1 pixels differ"
restore

cp "$a/crop-hidden.ppm" "$a/crop-inside.ppm"
cp "$a/crop-hidden.ppm" "$b/crop-inside.ppm"
differs "crop-inside: only 0 pixels are lit"
restore

cp "$a/crop-inside.ppm" "$a/crop-hidden.ppm"
cp "$a/crop-inside.ppm" "$b/crop-hidden.ppm"
differs "pixels are drawn instead of none"
restore

sed -i '/^state arcs /d' "$b/states.txt"
endOf "$b"
differs "arcs: is missing in $b"
restore

sed -i '/^end: /d' "$a/states.txt"
differs "does not end as it should"
restore

rm "$a/arcs.ppm"
differs "cannot read $a/arcs.ppm"
restore

for folder in "$a" "$b"; do sed -i '/^state discs /a text 0 0 257 30' "$folder/states.txt"; done
differs "discs: text takes too much of it"
restore

for folder in "$a" "$b"; do sed -i '/^state discs /a text 0 0 257 20' "$folder/states.txt"; done
differs "discs: a text is missing"
restore

sed -i '/^state discs /a text 0 0 9 9' "$b/states.txt"
differs "discs: is described differently"
restore

status=0
"$program" --compare "$a" 2>"$work/log" || status=$?
[ "$status" -eq 2 ] || fail "status $status for a wrong command line"
