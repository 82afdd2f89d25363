#!/usr/bin/env bash
# Fails if a plug-in exports anything but the functions that are named after it, lacks one of them, or
# needs a library of FFmpeg.
# Usage: check_exports.sh PLUG_IN FUNCTION...
set -euo pipefail
plug_in=$1
shift
exported=$(nm -D --defined-only "$plug_in" | awk '{print $NF}' | sort)
diff <(printf '%s\n' "$@" | sort) <(echo "$exported") ||
    { echo "$plug_in exports other names (< expected, > exported)" >&2; exit 1; }
needed=$(readelf -d "$plug_in" | grep NEEDED)
grep -q libdssdk <<<"$needed" || { echo "$plug_in does not link what it should: $needed" >&2; exit 1; }
if grep -E 'lib(av|sw)' <<<"$needed"; then
    echo "$plug_in links FFmpeg" >&2
    exit 1
fi
