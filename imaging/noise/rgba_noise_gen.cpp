#include "imaging/noise/rgba_noise_gen.h"

#include <algorithm>

#include "imaging/blur/blur_gauss.h"
#include "imaging/blur/channel_blur_sampler.h"
#include "imaging/noise/noise_gen.h"

namespace ruvex {
namespace {

constexpr int kAlpha = 3;

bool allEqual(const float (&sizes)[4], bool alpha) {
    const bool colours = sizes[0] == sizes[1] && sizes[1] == sizes[2];
    return colours && (!alpha || sizes[kAlpha] == sizes[0]);
}

template <class Processor>
void giveWindow(Processor& processor, const VxImgProc& from) {
    std::int32_t left, top, right, bottom;
    from.getWindow(left, top, right, bottom);
    processor.setWindow(left, top, right, bottom);
    processor.interrupt = from.interrupt;
}

template <std::uint32_t Mask>
void blurComponents(VxRGBANoiseGen& noise) {
    BlurRGBAGauss<RgbaInt, Mask> blur;
    giveWindow(blur, noise);
    // The size of the blur is divided among its three boxes.
    blur.radiusX = noise.blurX[0] / noise.scaleX / 3.0f;
    blur.radiusY = noise.blurY[0] / 3.0f;
    blur.iterations = 3;
    blur.process(&noise.work, noise.target);
}

}  // namespace

float largestSoftness(const float (&sizes)[4], bool alpha) {
    const float colours = std::max({sizes[0], sizes[1], sizes[2]});
    return std::max(colours, alpha ? sizes[kAlpha] : 0.0f);
}

void VxRGBANoiseGen::pre() {
    blurring = false;
    const float sizeX = largestSoftness(blurX, alpha);
    const float sizeY = largestSoftness(blurY, alpha);
    if (!(sizeX > 0.0f) && !(sizeY > 0.0f)) return;
    push();
    blurring = true;
    prepareSoftNoise(*this, work, std::clamp(sizeX, 0.0f, 2.0f * static_cast<float>(mapWidth)),
                     std::clamp(sizeY, 0.0f, 2.0f * static_cast<float>(mapHeight)));
}

void VxRGBANoiseGen::run() {
    VxTexture<RgbaInt>& onto = blurring ? work : *target;
    if (!onto.data) return;
    const Span rows = rowRange();
    const Span columns = columnRange();
    if (columns.first >= columns.end) return;
    const float factors[4] = {scale[0] * kHashStep, scale[1] * kHashStep, scale[2] * kHashStep,
                              scale[kAlpha] * kHashStep};
    for (std::int32_t y = rows.first; y < rows.end; ++y) {
        if (interruptCheck(interrupt)) return;
        noiseRow(pixelNumber(columns.first, y), columns.end - columns.first, factors, alpha,
                 onto.writeAt(columns.first, y));
    }
}

void VxRGBANoiseGen::post() {
    if (blurring) {
        pop();
        if (evenlySoft()) {
            blurTogether();
        } else {
            blurApart();
        }
    }
    work.clear();
}

bool VxRGBANoiseGen::evenlySoft() const {
    return allEqual(blurX, alpha) && allEqual(blurY, alpha);
}

void VxRGBANoiseGen::blurTogether() {
    if (alpha) {
        blurComponents<15>(*this);
    } else {
        blurComponents<7>(*this);
    }
}

void VxRGBANoiseGen::blurApart() {
    ChannelBlurSampler blur;
    giveWindow(blur, *this);
    for (int k = 0; k < 4; ++k) blur.sizes[k] = {blurX[k] / scaleX, blurY[k]};
    if (!alpha) blur.sizes[kAlpha] = {0.0f, 0.0f};
    blur.count = 1;
    blur.process(&work, target);
}

}  // namespace ruvex
