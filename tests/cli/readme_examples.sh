#!/usr/bin/env bash
# Runs every `ruvex` example of the README and of the commands' own help, on files with the names
# that the examples use.
# Usage: readme_examples.sh README COMMAND
set -euo pipefail
readme=$1
command=$2
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
PATH=$(dirname "$command"):$PATH

examples() {
    # Lines of sh blocks that begin with the command, continued lines joined.
    awk '/^```sh/ { inside = 1; next } /^```/ { inside = 0 }
         inside { line = line $0; if (sub(/\\$/, "", line)) next
                  if (line ~ /^ruvex /) print line; line = "" }' "$readme"
    "$command" render --help | sed -n 's/^  \(ruvex render .*\)/\1/p'
    "$command" level --help | sed -n 's/^  \(ruvex level .*\)/\1/p'
}
examples >"$folder/examples"

cd "$folder"
ffmpeg -nostdin -v error -f lavfi -i testsrc2=size=720x576:rate=25 -t 2.2 -pix_fmt yuv420p clip.mp4
ffmpeg -nostdin -v error -f lavfi -i testsrc2=size=64x48:rate=25 -frames:v 3 shot.%05d.png
ffmpeg -nostdin -v error -f lavfi -i testsrc=size=720x576 -frames:v 1 mask.png
head -c $((1920 * 1080 * 8)) /dev/zero >in.7.s214

count=0
while IFS= read -r example; do
    echo "\$ $example"
    bash -c "$example" >output </dev/null || { echo "failed: $example"; exit 1; }
    count=$((count + 1))
done <examples
# A change of form must not leave this test with nothing to do.
[ "$count" -ge 18 ] || { echo "only $count examples found"; exit 1; }
for result in poor.mp4 going.mkv cropped.00003.png out.7.s214 part.png rewound.mp4 spot.mp4 level.svg; do
    [ -s "$result" ] || { echo "no $result"; exit 1; }
done
