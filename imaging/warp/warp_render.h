// Filling a picture through a warp.

#pragma once

#include <cstdint>

#include "imaging/imager.h"
#include "imaging/line_copier.h"
#include "imaging/texture.h"
#include "imaging/warp/warper.h"

namespace ruvex {

enum class WarpFilter : std::uint32_t {
    Nearest = 0,
    Bilinear = 1,
    Corners = 2,  ///< at the centre between a pixel's warped corners
};

/// Copies what the warper leaves alone and resamples the rest.
template <class P>
class VxWarpRender : public Imager, public SimpleLineCopier {
public:
    using Texture = VxTexture<P>;

    /// Fills the window of `target`, the Map, from `source`. With a null `target` a texture of the
    /// source's size, edge methods and range is made; the caller owns it. A Map that can't be
    /// written is named on the standard error stream and left alone.
    void process(Texture*& target, const Texture& source);

    VxWarper* warper = nullptr;  ///< borrowed
    WarpFilter filter = WarpFilter::Nearest;

    // The steps of a run.
    void start(const Texture*, Texture*) {}
    void work(const Texture* source, Texture* target);
    void finish(const Texture*, Texture*) {}
};

extern template class VxWarpRender<Rgba8>;
extern template class VxWarpRender<RgbaS214>;

}  // namespace ruvex
