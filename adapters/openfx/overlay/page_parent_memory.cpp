#include "adapters/openfx/overlay/page_parent.h"

namespace ruvex::openfx {

HWND pageParent() {
    return nullptr;
}

}  // namespace ruvex::openfx
