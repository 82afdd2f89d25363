#!/usr/bin/env bash
# Tries which arithmetic imaging/float_arithmetic.h takes: float_arithmetic.sh COMPILER SOURCES.
set -euo pipefail
compiles() {
    "$1" -std=c++20 -fsyntax-only -x c++ "${@:2}" - <<<'#include "imaging/float_arithmetic.h"' 2>/dev/null
}
compiler=$1
include=-I$2
compiles "$compiler" "$include" || { echo "The usual arithmetic is refused" >&2; exit 1; }
! compiles "$compiler" "$include" -ffast-math || { echo "fast-math is taken" >&2; exit 1; }
# Only compilers for x86 know the older unit.
if [ "$(uname -m)" = x86_64 ] && grep -q 'Free Software' <<<"$("$compiler" --version)"; then
    ! compiles "$compiler" "$include" -mfpmath=387 || { echo "x87 is taken" >&2; exit 1; }
fi
