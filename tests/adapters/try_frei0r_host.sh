#!/usr/bin/env bash
# Renders two presets with the plug-in in one host, at a size whose time is garbage in ffmpeg and at one
# where it is not, and compares all bytes with `ruvex render`: try_frei0r_host.sh HOST RUVEX PLUG_IN_FOLDER.
# Ends with status 77 if the host is not installed.
set -euo pipefail
host=$1
RUVEX=$2
export FREI0R_PATH=$3
command -v "$host" >/dev/null || { echo "$host is not installed"; exit 77; }
WORK=$(mktemp -d)
trap 'rm -rf "$WORK"' EXIT
. "$(dirname "$0")/frei0r_frames.sh"

frames_of_host() {
    case $host in
        ffmpeg) frames_of_ffmpeg "$1" "$2" ;;
        melt) frames_of_melt "$1" 1 look="$2" ;;
    esac
}

for size in 720x576 1280x720; do
    clip=$WORK/$size.mkv
    make_clip $size 5 "$clip"
    original=$(md5_of_frames -i "$clip")
    for preset in "Bad Colour TV" "Offset Guns"; do
        reference=$(frames_of_ruvex "$clip" --preset "$preset")
        [ "$reference" != "$original" ] || { echo "$preset changes nothing" >&2; exit 1; }
        expect_same "$host, $preset, $size" "$reference" "$(frames_of_host "$clip" "$preset")"
    done
done
[ "${failures:-0}" -eq 0 ]
