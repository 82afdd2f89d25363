#!/usr/bin/env bash
# Installs a build into a folder of its own and tries that: try_install.sh CMAKE BUILD_FOLDER.
set -euo pipefail
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT
"$1" --install "$2" --prefix "$prefix" >/dev/null
"$(dirname "$0")/try_installation.sh" "$prefix"
