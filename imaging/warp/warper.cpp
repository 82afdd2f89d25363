#include "imaging/warp/warper.h"

namespace ruvex {

float VxWarper::warpAmountNormal(WarpPoint&, WarpNormal& normal, float) const {
    normal = {0.0f, 0.0f, 1.0f};
    return 0.0f;
}

float VxWarper::warpNormal(WarpPoint& point, WarpNormal& normal) const {
    normal = {0.0f, 0.0f, 1.0f};
    return warp(point);
}

void VxWarper::warpRow(std::int32_t x, std::int32_t y, std::int32_t count, float* sx,
                       float* sy) const {
    for (std::int32_t i = 0; i < count; ++i) {
        WarpPoint point{static_cast<float>(x + i) + 0.5f, static_cast<float>(y) + 0.5f};
        warp(point);
        sx[i] = point.x;
        sy[i] = point.y;
    }
}

}  // namespace ruvex
