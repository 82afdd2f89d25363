#include "imaging/noise/noise_gen.h"

#include <algorithm>
#include <cmath>

#include "imaging/blur/blur_gauss.h"
#include "imaging/maths/wrap.h"
#include "imaging/pixel_convert.h"

namespace ruvex {

template <class P>
void prepareSoftNoise(VxImgProc& processor, VxTexture<P>& work, float sizeX, float sizeY) {
    const std::int32_t marginX = truncateToInt(std::ceil(sizeX / processor.scaleX));
    const std::int32_t marginY = truncateToInt(std::ceil(sizeY));
    std::int32_t left, top, right, bottom;
    processor.getWindow(left, top, right, bottom);
    processor.setWindow(wrapSubtract(left, marginX), wrapSubtract(top, marginY),
                        wrapAdd(right, marginX), wrapAdd(bottom, marginY));
    processor.getWindow(left, top, right, bottom);
    work.allocateRegion(left, top, right, bottom);
    processor.clipToTexture(work);
    if (!work.data) raiseOutOfMemory(processor.interrupt);
}

template void prepareSoftNoise(VxImgProc&, VxTexture<ChannelInt>&, float, float);
template void prepareSoftNoise(VxImgProc&, VxTexture<RgbaInt>&, float, float);

void VxNoiseGen::pre() {
    blurring = false;
    if (!(blurX > 0.0f) && !(blurY > 0.0f)) return;
    push();
    blurring = true;
    blurX = std::clamp(blurX, 0.0f, 2.0f * static_cast<float>(mapWidth));
    blurY = std::clamp(blurY, 0.0f, 2.0f * static_cast<float>(mapHeight));
    prepareSoftNoise(*this, work, blurX, blurY);
    work.setEdgeMethods(kEdgeWrap, kEdgeWrap);
}

void VxNoiseGen::run() {
    VxTexture<ChannelInt>& onto = blurring ? work : *target;
    if (!onto.data) return;
    const Span rows = rowRange();
    const Span columns = columnRange();
    if (columns.first >= columns.end) return;
    const std::int32_t count = columns.end - columns.first;
    for (std::int32_t y = rows.first; y < rows.end; ++y) {
        if (interruptCheck(interrupt)) return;
        ChannelInt* row = onto.writeAt(columns.first, y);
        noiseRow(pixelNumber(columns.first, y), count, scale * kHashStep, offset, row);
        if (clampLow) holdAboveZero(count, row);
    }
}

void VxNoiseGen::post() {
    if (blurring) {
        pop();
        BlurIntGauss blur;
        std::int32_t left, top, right, bottom;
        getWindow(left, top, right, bottom);
        blur.setWindow(left, top, right, bottom);
        blur.interrupt = interrupt;
        // The size of the blur is divided among its three boxes.
        blur.radiusX = blurX / scaleX / 3.0f;
        blur.radiusY = blurY / 3.0f;
        blur.iterations = 3;
        blur.process(&work, target);
    }
    work.clear();
}

}  // namespace ruvex
