// Separable blurs: two or three box filters in a row along each axis approximate a Gaussian.

#pragma once

#include <cstdint>
#include <memory>

#include "imaging/blur/blur_pass.h"
#include "imaging/sampler.h"
#include "imaging/texture.h"

namespace ruvex {

/// A box radius in pixels, clamped to 0 .. 3 * the longer side of the Map. NaN gives 0.
float settledRadius(float radius, std::int32_t mapWidth, std::int32_t mapHeight);

/// Base class of all blurs. Set the radii, `iterations`, the window, `scaleX` and `interrupt`, then
/// call process(source, map). Source and Map may be the same texture. For a blur that reaches
/// `size` pixels to each side use three boxes of radius size / 3. The fractional part of a radius
/// is the weight of the two pixels just outside the box. The time per row does not depend on the
/// radius.
///
/// Pixels outside the source come from its edge methods and fill pixel. With `iterations` of 2 and
/// more, every box reads them as far out as it needs, as if the picture had no border.
///
/// `fieldMode` is ignored. The rows and columns are always divided among all workers, so
/// `singleThread` must stay unset.
template <class P, std::uint32_t Mask, BlurArithmetic Arithmetic>
class GaussSampler : public Sampler<VxTexture<P>> {
public:
    using Texture = VxTexture<P>;

    void start(Texture* source, Texture* target) override;
    void startPass(Texture* source, Texture* target) override;
    void work(Texture* source, Texture* target) override;

    /// Box radii in pixels. Every call of process divides radiusX by `scaleX`, clamps both as
    /// settledRadius does and stores the results here.
    float radiusX = 0.0f, radiusY = 0.0f;
    std::int32_t iterations = 3;  ///< 3 for three boxes; any other value gives two

    // State of the current run.
    std::int32_t mapOffsetX = 0, mapOffsetY = 0;
    std::int32_t sourceOriginX = 0, sourceOriginY = 0;
    std::uint32_t mapEdgeX = 0, mapEdgeY = 0;
    P mapFill{};
    /// The picture after the horizontal pass, with a margin of rows above and below. Allocated by
    /// the first run; later runs reuse it at that size.
    std::unique_ptr<Texture> temp;
    std::int32_t savedX0 = 0, savedX1 = 0, savedY0 = 0, savedY1 = 0;  ///< the caller's window
    std::uint32_t copyBack = 0;                                       ///< always 0
    std::int32_t width = 0, height = 0;  ///< the larger of the Map's and the source's sizes

private:
    void settleRadii();
    void save(const Texture& source, const Texture& target);
    void restoreWindow();
    bool prepareTemp(const Texture& source);
    std::int32_t margin() const;
    BoxPlan planX(const Texture& source) const;
    BoxPlan planY(const Texture& target) const;
    /// Whether all margin rows above the source are equal, and all below it: then pass 0 computes
    /// only one of each, and pass 1 repeats it.
    bool marginIsFlat(const Texture& source) const;
    /// The rows of `temp` that pass 0 computes, in image space.
    LineRange rowsBetween(const Texture& source) const;
    void blurX(const Texture& source);
    void blurY(const Texture& source, Texture& target);

    bool covered_ = false;  ///< pass 0 writes every pixel that pass 1 reads
};

/// Blur with 14-bit fixed-point weights and integer sums; every box rounds to an integer. For
/// RgbaInt, `Mask` selects the components to blur (15, 7, 1, 2, 4 or 8; bit 0 is red); the Map's
/// other components keep their values, unless both radii are 0: then whole pixels are copied.
template <class P, std::uint32_t Mask = 15>
class BlurRGBAGauss : public GaussSampler<P, Mask, BlurArithmetic::Fixed> {};

/// The same for ChannelInt.
class BlurIntGauss : public GaussSampler<ChannelInt, 1, BlurArithmetic::Fixed> {};

/// Blur with float weights and sums; every box truncates to the pixel's storage type.
template <class P>
class BlurGeneralGauss : public GaussSampler<P, 15, BlurArithmetic::Floating> {};

extern template class GaussSampler<Rgba8, 15, BlurArithmetic::Fixed>;
extern template class GaussSampler<RgbaS214, 15, BlurArithmetic::Fixed>;
extern template class GaussSampler<RgbaInt, 15, BlurArithmetic::Fixed>;
extern template class GaussSampler<RgbaInt, 7, BlurArithmetic::Fixed>;
extern template class GaussSampler<RgbaInt, 1, BlurArithmetic::Fixed>;
extern template class GaussSampler<RgbaInt, 2, BlurArithmetic::Fixed>;
extern template class GaussSampler<RgbaInt, 4, BlurArithmetic::Fixed>;
extern template class GaussSampler<RgbaInt, 8, BlurArithmetic::Fixed>;
extern template class GaussSampler<ChannelInt, 1, BlurArithmetic::Fixed>;
extern template class GaussSampler<Rgba8, 15, BlurArithmetic::Floating>;
extern template class GaussSampler<RgbaS214, 15, BlurArithmetic::Floating>;

}  // namespace ruvex
