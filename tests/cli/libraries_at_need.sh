#!/usr/bin/env bash
# Fails if the command loads an FFmpeg library that it does not need.
# Usage: libraries_at_need.sh COMMAND
set -euo pipefail
ruvex=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

# The FFmpeg libraries that the command loads, each once, without their versions.
libraries() {
    LD_DEBUG=files LD_DEBUG_OUTPUT=$folder/loaded "$ruvex" "$@" >"$folder/output"
    cat "$folder"/loaded.* | grep -oE 'lib(av|sw)[a-z]+\.so' | sort -u | tr '\n' ' ' || true
    rm "$folder"/loaded.*
}

expect() {
    local wanted=$1
    shift
    local found
    found=$(libraries "$@")
    [ "$found" = "$wanted" ] && return
    echo "ruvex $* loads '$found' and should load '$wanted'" >&2
    exit 1
}

for command in --version --help params presets "render --help" "level --frames 0-3"; do
    # shellcheck disable=SC2086 # the words of a command
    expect "" $command
done

printf 'YUV4MPEG2 W16 H16 F25:1 C444\nFRAME\n%768s' "" >"$folder/clip.y4m"
"$ruvex" render "$folder/clip.y4m" -o "$folder/frame.png" --frames 0 --quiet
# A still needs the codecs, and no containers or filters.
expect "libavcodec.so libavutil.so libswresample.so " \
    render "$folder/frame.png" -o "$folder/result.png" --quiet
