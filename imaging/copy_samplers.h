// Samplers that copy pixels unchanged; outside the source its edge methods apply.

#pragma once

#include <cstdint>

#include "imaging/line_copier.h"
#include "imaging/sampler.h"
#include "imaging/texture.h"

namespace ruvex {

/// Copies whole pixels.
template <class P>
class SimpleCopySampler : public Sampler<VxTexture<P>>, public SimpleLineCopier {
public:
    void work(VxTexture<P>* source, VxTexture<P>* target) override;
};

/// Copies the components whose bit is set in `channels`; the Map keeps the others.
template <class P>
class VxRGBCopySampler : public SimpleCopySampler<P> {
public:
    void work(VxTexture<P>* source, VxTexture<P>* target) override;

    /// Bit 0 red, 1 green, 2 blue, 3 alpha. 15 copies whole pixels, 0 does nothing.
    std::uint32_t channels = 15;
};

/// Copies one component (0 red to 3 alpha) of the integer pixel into the same one of the Map.
template <int Component>
class ChannelCopySampler : public Sampler<VxTexture<RgbaInt>> {
public:
    void work(VxTexture<RgbaInt>* source, VxTexture<RgbaInt>* target) override;
};

extern template class SimpleCopySampler<Rgba8>;
extern template class SimpleCopySampler<RgbaS214>;
extern template class SimpleCopySampler<RgbaInt>;
extern template class SimpleCopySampler<ChannelInt>;
extern template class VxRGBCopySampler<Rgba8>;
extern template class VxRGBCopySampler<RgbaS214>;
extern template class ChannelCopySampler<0>;
extern template class ChannelCopySampler<1>;
extern template class ChannelCopySampler<2>;
extern template class ChannelCopySampler<3>;

}  // namespace ruvex
