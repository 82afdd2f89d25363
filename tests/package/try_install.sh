#!/usr/bin/env bash
# Installs a build into a folder of its own, tries that, and takes it away: try_install.sh CMAKE
# BUILD_FOLDER.
set -euo pipefail
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT
"$1" --install "$2" --prefix "$prefix" >/dev/null
"$(dirname "$0")/try_installation.sh" "$prefix"

# Somebody else's file in a folder that is shared, and one in a folder of ours, stay.
touch "$prefix/bin/other" "$prefix/share/ruvex/own.json"
"$1" -DMANIFEST="$2/install_manifest.txt" -P "$(dirname "$0")/../../cmake/Uninstall.cmake" >/dev/null
left=$(cd "$prefix" && find . -type f | sort | tr '\n' ' ')
[ "$left" = "./bin/other ./share/ruvex/own.json " ] || { echo "Left behind: $left" >&2; exit 1; }
[ ! -e "$prefix/lib/ruvex" ] || { echo "lib/ruvex is left behind" >&2; exit 1; }
! "$1" -DMANIFEST="$2/install_manifest.txt" -P "$(dirname "$0")/../../cmake/Uninstall.cmake" >/dev/null 2>&1 ||
    { echo "An installation that is gone is removed again" >&2; exit 1; }
