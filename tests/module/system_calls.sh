#!/usr/bin/env bash
# What the module asks of the system and of its host, class functions aside: each is a function that
# a system without it has to be given. A new one belongs into this list, and into sdk/ where the
# system lacks it.
set -euo pipefail
module=$1
expected='CoCreateFreeThreadedMarshaler
CoCreateInstance
CreateFontA
DSContentGetProperty
DSPostToUserInterface
DSRegisterCOMEffect
DSRegisterObjectFamilies
DSUnregisterCOMEffect
DSUnregisterObjectFamilies
DeleteObject
EnableWindow
GetCharWidth32W
GetDlgItem
GetPropW
InvalidateRect
LoadStringW
SelectObject
SendMessageW
ShellExecuteW
ShowWindow
VWControllerPushContext
VWControllerRemoveContext
vwSurfaceBeginRenderOpenGL
vwSurfaceEndRenderOpenGL
wglGetCurrentDC
wglUseFontBitmapsW'
# Symbols of the compiler's and the C libraries have a version, after an @.
asked=$(nm --dynamic --demangle --undefined-only "$module" | sed -n 's/^ *U \([A-Za-z0-9_]*\)(.*/\1/p' |
    grep -v '^operator' | sort -u)
[ "$asked" = "$expected" ] || {
    printf 'The module asks for (> new, < no longer):\n' >&2
    diff <(echo "$expected") <(echo "$asked") >&2
    exit 1
}
