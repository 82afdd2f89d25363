#!/usr/bin/env bash
# Fails if the listing program leaves out a constant of the headers that are named, or a function of
# their tables.
set -euo pipefail
listing=$("$1")
shift
for name in $(grep -hoE '\bkOfx[A-Za-z0-9]+' "$@" | sort -u); do
    grep -q "^$name " <<<"$listing" || { echo "$name is not listed" >&2; exit 1; }
done
for name in $(grep -hoE '\(\*[A-Za-z0-9]+\)' "$@" | tr -d '(*)' | sort -u); do
    grep -qE "\.$name [0-9]+$" <<<"$listing" || { echo "the function $name is not listed" >&2; exit 1; }
done
