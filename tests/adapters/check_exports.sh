#!/usr/bin/env bash
# Fails if the frei0r plug-in that is named exports anything but the interface, lacks a function of it,
# or needs a library of FFmpeg.
set -euo pipefail
expected="f0r_construct f0r_deinit f0r_destruct f0r_get_param_info f0r_get_param_value f0r_get_plugin_info
f0r_init f0r_set_param_value f0r_update"
exported=$(nm -D --defined-only "$1" | awk '{print $NF}' | sort)
diff <(tr ' ' '\n' <<<"$expected") <(echo "$exported") || { echo "$1 exports other names" >&2; exit 1; }
needed=$(readelf -d "$1" | grep NEEDED)
grep -q libdssdk <<<"$needed" || { echo "$1 does not link what it should: $needed" >&2; exit 1; }
if grep -E 'lib(av|sw)' <<<"$needed"; then
    echo "$1 links FFmpeg" >&2
    exit 1
fi
