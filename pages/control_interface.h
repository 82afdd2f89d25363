// The interface of one of the host's controls.

#pragma once

#include "sdk/com/com_ptr.h"
#include "sdk/window/window.h"

namespace ruvex {

/// Null if the window is null or no such control.
template <class Interface>
ComPtr<Interface> controlInterface(HWND window) {
    auto* const found = static_cast<IUnknown*>(GetPropW(window, L"DSCTLIFACE"));
    return ComPtr<IUnknown>(found).query<Interface>();
}

}  // namespace ruvex
