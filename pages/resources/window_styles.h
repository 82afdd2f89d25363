// The system's window styles, for the resource compiler: without the system's own headers, which
// only a build for Windows has.

#pragma once

#define WS_CHILD 0x40000000
#define WS_VISIBLE 0x10000000
#define WS_VSCROLL 0x00200000
#define WS_TABSTOP 0x00010000
#define DS_SETFONT 0x40
#define DS_CONTROL 0x400
#define CBS_DROPDOWNLIST 0x3
#define SS_LEFT 0x0
#define SS_BITMAP 0xE
#define SS_NOPREFIX 0x80
#define SS_CENTERIMAGE 0x200
#define FW_NORMAL 400
