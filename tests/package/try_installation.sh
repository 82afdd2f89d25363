#!/usr/bin/env bash
# Tries an installed V_Ruvex: try_installation.sh PREFIX. Everything must be there, and the command
# must run with nothing of the build's folders.
set -euo pipefail
prefix=$1
ruvex=$prefix/bin/ruvex
for file in bin/ruvex lib/ruvex/V_Ruvex.so lib/ruvex/libdssdk.so lib/ruvex/libdsvwr.so lib/ruvex/libil.so \
        share/doc/ruvex/copyright share/man/man1/ruvex.1 share/bash-completion/completions/ruvex \
        share/zsh/vendor-completions/_ruvex share/doc/ruvex/README.md \
        share/fish/vendor_completions.d/ruvex.fish "share/ruvex/presets/Bad Colour TV.json" \
        share/ruvex/looks/clean.json; do
    [ -s "$prefix/$file" ] || { echo "$file is missing" >&2; exit 1; }
done

# Each file and picture that the README links to.
while read -r link; do
    [ -e "$prefix/share/doc/ruvex/$link" ] || { echo "README.md links to $link, which is missing" >&2; exit 1; }
done < <(grep -o '](docs/[^)#]*' "$prefix/share/doc/ruvex/README.md" | cut -c3-)

# Only what lies in the installation may be loaded of our own.
LD_TRACE_LOADED_OBJECTS=1 "$ruvex" | grep -E 'libdssdk|libdsvwr|libil\.so' | grep -vF "$(realpath "$prefix")" &&
    { echo "The command loads libraries from elsewhere" >&2; exit 1; }

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
head -c $((64 * 48 * 4)) /dev/zero | tr '\0' '\200' >"$work/in.0.rgba8"
"$ruvex" module >"$work/module"
grep -q V_Ruvex "$work/module"
"$ruvex" render "$work/in.%d.rgba8" -o "$work/out.%d.rgba8" --size 64x48 --frames 0-0 \
    --preset "$prefix/share/ruvex/presets/Cable Out.json" >/dev/null
[ "$(stat -c %s "$work/out.0.rgba8")" -eq $((64 * 48 * 4)) ]
! cmp -s "$work/in.0.rgba8" "$work/out.0.rgba8" || { echo "The picture is unchanged" >&2; exit 1; }

"$(dirname "$0")/try_frei0r.sh" "$prefix"

# The looks are found from where the command lies, also after the tree is moved.
shipped=$(find "$prefix/share/ruvex/looks" -name '*.json' | wc -l)
cp -a "$prefix" "$work/moved"
export XDG_DATA_HOME=$work/none
for place in "$prefix" "$work/moved"; do
    [ "$("$place/bin/ruvex" presets --names --group looks | wc -l)" -eq "$shipped" ] ||
        { echo "Looks are missing in $place" >&2; exit 1; }
    [ "$("$place/bin/ruvex" presets --json --group looks | grep -c "\"file\": \"$(realpath "$place")/")" -eq "$shipped" ] ||
        { echo "Looks are from elsewhere than $place" >&2; exit 1; }
done
