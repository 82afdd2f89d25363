#!/usr/bin/env bash
# Runs every `ruvex` example of the documents and of the commands' own help, on files with the names
# that the examples use, and reads every look file that the documents show.
# Usage: readme_examples.sh COMMAND DOCUMENT..., with the frei0r plug-in's folder in FREI0R_PATH.
set -euo pipefail
command=$(realpath "$1")
shift
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
PATH=$(dirname "$command"):$PATH

examples() {
    # Lines of sh blocks that begin with the command or feed it, continued lines joined.
    awk '/^```sh/ { inside = 1; next } /^```/ { inside = 0 }
         inside { line = line $0; if (sub(/\\$/, "", line)) next
                  if (line ~ /^(ruvex|ffmpeg) /) print line; line = "" }' "$@"
    for name in render compare level presets module help; do
        "$command" "$name" --help | sed -n "s/^  \\(ruvex $name .*\\)/\\1/p"
    done
}
examples "$@" | awk '!seen[$0]++' >"$folder/examples"
awk -v folder="$folder" '/^```json/ { file = folder "/shown." ++n ".json"; next } /^```/ { file = "" }
                         file { print >file }' "$@"

cd "$folder"
ffmpeg -nostdin -v error -f lavfi -i testsrc2=size=360x288:rate=25 -t 2.2 -pix_fmt yuv420p clip.mp4
cp clip.mp4 other.mp4
ffmpeg -nostdin -v error -f lavfi -i testsrc2=size=64x48:rate=25 -frames:v 3 shot.%05d.png
ffmpeg -nostdin -v error -f lavfi -i testsrc=size=360x288 -frames:v 1 mask.png
head -c $((1920 * 1080 * 8)) /dev/zero >in.7.s214

count=0
while IFS= read -r example; do
    echo "\$ $example"
    bash -c "$example" >output </dev/null || { echo "failed: $example"; exit 1; }
    count=$((count + 1))
done <examples
# A change of form must not leave this test with nothing to do.
[ "$count" -ge 22 ] || { echo "only $count examples found"; exit 1; }
shown=0
for file in shown.*.json; do
    ruvex level --frames 0-0 --params "$file" >output || { echo "not taken: $file"; exit 1; }
    shown=$((shown + 1))
done
[ "$shown" -ge 1 ] || { echo "no look file found"; exit 1; }
for result in poor.mp4 going.mkv cropped.00003.png out.7.s214 part.png rewound.mp4 spot.mp4 level.svg \
    results/clip.mp4 results/other.mp4 sheet.png my-look.json again.mp4 both.mp4 split.mp4 still.png piped.mp4 \
    aerial.mp4 storm.mp4; do
    [ -s "$result" ] || { echo "no $result"; exit 1; }
done
