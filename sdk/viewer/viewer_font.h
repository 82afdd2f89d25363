// The functions by which a tool makes display lists of a font's characters. On Windows these are
// the system's own; elsewhere they know one font: bold, 18 pixels high, with the characters 32 to
// 127.

#pragma once

#ifdef _WIN32

#include <windows.h>

#else

#include "sdk/com/com.h"

/// A device context: stands for the surface that is being rendered. Never dereferenced.
struct DSDeviceContext;
using HDC = DSDeviceContext*;
/// A font, or what was selected before one. Never dereferenced.
struct DSGdiObject;
using HGDIOBJ = DSGdiObject*;
using HFONT = DSGdiObject*;

/// The device context of the surface whose render the calling thread has begun with
/// vwSurfaceBeginRenderOpenGL; null outside a render.
DSVWR_API HDC wglGetCurrentDC();

/// Returns the one font; null for a height of 0. All other arguments are ignored.
DSVWR_API HFONT CreateFontA(int height, int width, int escapement, int orientation, int weight,
                            DWORD italic, DWORD underline, DWORD strikeOut, DWORD characterSet,
                            DWORD outputPrecision, DWORD clipPrecision, DWORD quality,
                            DWORD pitchAndFamily, const char* face);

/// Selects a font into a device context and returns an object for the one selected before. There is
/// only one font, so it stays selected whatever is passed. Null for a null argument.
DSVWR_API HGDIOBJ SelectObject(HDC context, HGDIOBJ object);

/// FALSE for null.
DSVWR_API BOOL DeleteObject(HGDIOBJ object);

/// The advances, in pixels, of the characters `first` to `last`: `widths` has room for all of them.
/// A character that the font lacks has 0. FALSE for a null argument.
DSVWR_API BOOL GetCharWidth32W(HDC context, UINT first, UINT last, int* widths);

/// Makes the display lists `listBase` to `listBase + count - 1` of the current OpenGL context, one
/// for each character from `first` on: a glBitmap of the glyph, and the move to the next character.
/// A character without pixels, or that the font lacks, gets an empty list. FALSE if `context` is
/// not that of the present render.
DSVWR_API BOOL wglUseFontBitmapsW(HDC context, DWORD first, DWORD count, DWORD listBase);

#endif
