#include "tools/page_host/viewer_layout.h"

#include <algorithm>
#include <cmath>

namespace ruvex::page_host {
namespace {

double fittingScale(SIZE window, int width, int height) {
    const double roomX = std::max<LONG>(1, window.cx - 2 * ViewerLayout::margin());
    const double roomY = std::max<LONG>(1, window.cy - 2 * ViewerLayout::margin());
    return std::min({1.0, roomX / width, roomY / height});
}

RECT centred(SIZE window, LONG width, LONG height) {
    const LONG left = (window.cx - width) / 2;
    const LONG top = (window.cy - height) / 2;
    return {left, top, left + width, top + height};
}

}  // namespace

ViewerLayout::ViewerLayout(SIZE window, int pictureWidth, int pictureHeight)
    : window_{std::max<LONG>(1, window.cx), std::max<LONG>(1, window.cy)},
      scale_(fittingScale(window_, pictureWidth, pictureHeight)),
      picture_(centred(window_, std::max(1L, std::lround(pictureWidth * scale_)),
                       std::max(1L, std::lround(pictureHeight * scale_)))) {}

int ViewerLayout::margin() {
    return 3 * GetSystemMetrics(SM_CXDRAG);
}

WorldPoint ViewerLayout::worldOrigin() const {
    return {-picture_.left / scale_, (picture_.bottom - window_.cy) / scale_};
}

WorldPoint ViewerLayout::worldAt(POINT pixel) const {
    constexpr double kMiddle = 0.5;
    return {(pixel.x + kMiddle - picture_.left) / scale_,
            (picture_.bottom - pixel.y - kMiddle) / scale_};
}

}  // namespace ruvex::page_host
