// Renders a picture through a warp.

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
    Corners = 2,  ///< bilinear, at the centre between the pixel's two warped corners
};

/// Resamples the pixels that the warper moves and copies the others.
template <class P>
class VxWarpRender : public Imager, public SimpleLineCopier {
public:
    using Texture = VxTexture<P>;

    /// Fills the window of `target`, the Map, from `source`. If `target` is null, a texture with
    /// the source's size, edge methods and range is allocated, which the caller owns. A Map without
    /// pixels is reported on standard error, and nothing is done.
    void process(Texture*& target, const Texture& source);

    VxWarper* warper = nullptr;  ///< not owned
    WarpFilter filter = WarpFilter::Nearest;

    // The steps of a run, called by Imager::runOn.
    void start(const Texture*, Texture*) {}
    void work(const Texture* source, Texture* target);
    void finish(const Texture*, Texture*) {}
};

extern template class VxWarpRender<Rgba8>;
extern template class VxWarpRender<RgbaS214>;

}  // namespace ruvex
