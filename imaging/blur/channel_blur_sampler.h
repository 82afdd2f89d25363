// A blur whose size differs from channel to channel.

#pragma once

#include <cstdint>

#include "imaging/sampler.h"
#include "imaging/texture.h"

namespace ruvex {

/// Blurs each channel of an integer picture by its own size, or copies it where that is 0 both
/// ways, and then turns the result over about the source.
class ChannelBlurSampler : public Sampler<VxTexture<RgbaInt>> {
public:
    using Texture = VxTexture<RgbaInt>;

    struct Size {
        float x = 3.0f, y = 3.0f;  ///< in pixels; the boxes' radii are a third of it
    };

    /// Does the work, on all threads.
    void start(Texture* source, Texture* target) override;
    void finish(Texture* source, Texture* target) override;

    std::int32_t count = 1;  ///< 1: `finish` puts 2 * source - result in place of the result
    std::int32_t reserved = 0;
    Size sizes[4];  ///< red, green, blue, alpha

private:
    template <int Component>
    void doChannel(Texture* source, Texture* target);
};

}  // namespace ruvex
