// The windows in memory of the calling thread. Not on Windows.

#pragma once

#include <new>

#include "sdk/window/window_tree.h"

#ifndef _WIN32

namespace ruvex::windows {

struct Window {
    DSWindowState state;
    DLGPROC* procedure = nullptr;  ///< of a dialog
};

/// The window of a handle, at the same address until it is destroyed. Null for null, for a
/// destroyed window and for one of another thread.
Window* find(HWND window);

/// Adds a window behind the children of its parent; reports nothing. Throws std::bad_alloc, without
/// a change.
HWND add(Window window);

/// Destroys a window after its descendants, and reports each of them. Allocates nothing.
void destroy(HWND window);

/// Calls the observer. It may destroy any window, so look the window up again afterwards.
void report(HWND window, DSWindowChange change);

/// Sends a message to the procedure of a dialog, which may destroy any window. 0 if there is none.
INT_PTR callProcedure(HWND dialog, UINT message, WPARAM wide, LPARAM extra);

/// What `operation` returns; `failure` if memory is exhausted: the system's functions do not throw.
template <class Result, class Operation>
Result unlessOutOfMemory(Result failure, Operation operation) {
    try {
        return operation();
    } catch (const std::bad_alloc&) {
        return failure;
    }
}

}  // namespace ruvex::windows

#endif
