// A blur with a separate size for each channel.

#pragma once

#include <cstdint>

#include "imaging/sampler.h"
#include "imaging/texture.h"

namespace ruvex {

/// Blurs each channel of an integer picture by its own size; a channel whose size is 0 in X and Y
/// is copied. Then replaces the result by 2 * source - result.
class ChannelBlurSampler : public Sampler<VxTexture<RgbaInt>> {
public:
    using Texture = VxTexture<RgbaInt>;

    struct Size {
        float x = 3.0f, y = 3.0f;  ///< pixels; a third of it is the radius of each of three boxes
    };

    /// Blurs all four channels. Each blur runs on all worker threads.
    void start(Texture* source, Texture* target) override;
    void finish(Texture* source, Texture* target) override;

    std::int32_t count = 1;  ///< 1: `finish` replaces the result by 2 * source - result
    std::int32_t reserved = 0;
    Size sizes[4];  ///< red, green, blue, alpha

private:
    template <int Component>
    void doChannel(Texture* source, Texture* target);
};

}  // namespace ruvex
