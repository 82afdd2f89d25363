// The base of an effect by itself.

#pragma once

#include "host/base/vx_ds_effect.h"

namespace ruvex::test {

/// An effect without a host, set up to work on all of a picture of a size.
class PlainEffect final : public VxDsEffect {
public:
    PlainEffect(std::int32_t width, std::int32_t height) {
        cropMode = CropMode::WindowEdges;
        region = {.x0 = 0, .x1 = width - 1, .y0 = 0, .y1 = height - 1};
        crop.right = crop.top = 1.0f;
    }

    void linkOverlay() override {}
    void pageActivated(const char*, std::int32_t, std::int32_t) override {}
    void updateOverlay() override {}
    HRESULT aggregationResult() override { return CLASS_E_NOAGGREGATION; }
    HRESULT extraVerify() override { return S_OK; }
};

}  // namespace ruvex::test
