#!/usr/bin/env bash
# Sources for one processor alone may define nothing that another source defines too: the linker
# keeps one copy of an inline function for all, and that must not be theirs. Of the objects named,
# those of such sources may have the getters of their loops and nothing else that is seen outside.
set -euo pipefail
objects=0
for object in "$@"; do
    case $object in *_avx2.cpp.* | *_avx512.cpp.*) ;; *) continue ;; esac
    objects=$((objects + 1))
    seen=$(nm --defined-only --demangle "$object" | grep -E ' [TWVuBDR] ' |
        grep -vE 'avx(2|512)[A-Za-z]*Kernels' || true)
    if [ -n "$seen" ]; then
        printf '%s shows to others:\n%s\n' "$object" "$seen" >&2
        exit 1
    fi
done
[ "$objects" -gt 0 ] || { echo "No object for one processor alone was named" >&2; exit 1; }
