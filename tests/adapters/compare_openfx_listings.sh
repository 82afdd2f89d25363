#!/usr/bin/env bash
# Fails if two listings of the OpenFX interface differ: that of our declarations, and that of the
# published headers.
set -euo pipefail
diff <("$1") <("$2") || { echo "the declarations differ (< ours, > published)" >&2; exit 1; }
