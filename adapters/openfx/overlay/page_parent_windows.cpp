#include "adapters/openfx/overlay/page_parent.h"

namespace ruvex::openfx {

HWND pageParent() {
    // A class of the system, so that no code of the plug-in is needed when it is unloaded.
    static const HWND window = CreateWindowExW(0, L"Static", L"", WS_POPUP, 0, 0, 1, 1, nullptr,
                                               nullptr, GetModuleHandleW(nullptr), nullptr);
    return window;
}

}  // namespace ruvex::openfx
