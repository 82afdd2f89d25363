#!/usr/bin/env bash
# Fails if the program that is named needs a library of FFmpeg.
set -euo pipefail
needed=$(readelf -d "$1" | grep NEEDED)
grep -q 'libdssdk' <<<"$needed" || { echo "$1 does not link what it should: $needed" >&2; exit 1; }
if echo "$needed" | grep -E 'lib(av|sw)'; then
    echo "$1 links FFmpeg" >&2
    exit 1
fi
