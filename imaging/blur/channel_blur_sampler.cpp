#include "imaging/blur/channel_blur_sampler.h"

#include "imaging/blur/blur_gauss.h"
#include "imaging/copy_samplers.h"
#include "imaging/subtract_combiner.h"

namespace ruvex {

void ChannelBlurSampler::start(Texture* source, Texture* target) {
    doChannel<0>(source, target);
    doChannel<1>(source, target);
    doChannel<2>(source, target);
    doChannel<3>(source, target);
}

template <int Component>
void ChannelBlurSampler::doChannel(Texture* source, Texture* target) {
    const auto run = [&](auto& sampler) {
        sampler.copyWindow(*this);
        sampler.interrupt = interrupt;
        sampler.process(source, target);
    };
    const Size& size = sizes[Component];
    if (size.x > 0.0f || size.y > 0.0f) {
        BlurRGBAGauss<RgbaInt, 1u << Component> blur;
        blur.radiusX = size.x / 3.0f;
        blur.radiusY = size.y / 3.0f;
        blur.iterations = 3;
        // The smallest pixel aspect, 0.001, is a double, as wherever an aspect is clamped.
        blur.scaleX = static_cast<float>(scaleX < 0.001 ? 0.001 : scaleX);
        blur.scaleY = 1.0f / blur.scaleX;
        run(blur);
    } else {
        ChannelCopySampler<Component> copy;
        run(copy);
    }
}

void ChannelBlurSampler::finish(Texture* source, Texture* target) {
    if (count != 1) return;
    SubtractCombiner subtract;
    subtract.copyWindow(*this);
    subtract.interrupt = interrupt;
    subtract.process(source, target, target);
}

}  // namespace ruvex
