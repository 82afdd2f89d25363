#include "sdk/window/window_tree.h"
#include "tests/overlay_pictures/page_window.h"

namespace ruvex::test {

HWND parentOfPages() {
    return nullptr;
}

void clickButton(HWND button) {
    DSClickButton(button);
}

}  // namespace ruvex::test
