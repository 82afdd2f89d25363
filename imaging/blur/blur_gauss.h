// The blurs: two or three running boxes along each axis, which come close to a Gaussian.

#pragma once

#include <cstdint>
#include <memory>

#include "imaging/blur/blur_pass.h"
#include "imaging/sampler.h"
#include "imaging/texture.h"

namespace ruvex {

/// A box radius held between 0 and three times the longer side of the Map.
float settledRadius(float radius, std::int32_t mapWidth, std::int32_t mapHeight);

/// What all blurs share. Configure the radii, `iterations`, the window, `scaleX` and `interrupt`,
/// then process(source, map). Source and Map may be one texture. A size / 3 as radius with three
/// boxes reaches as far as that size; a fraction weights the two pixels just outside a box. The
/// time a row takes does not depend on the radius.
///
/// The source's edge methods and fill pixel hold. A row is blurred past its ends as if the picture
/// went on for ever, and so is a column, for `iterations` of 2 and more.
///
/// `fieldMode` has no meaning here. The lines are shared out over all workers whatever
/// `singleThread` says, so that must stay unset.
template <class P, std::uint32_t Mask, BlurArithmetic Arithmetic>
class GaussSampler : public Sampler<VxTexture<P>> {
public:
    using Texture = VxTexture<P>;

    void start(Texture* source, Texture* target) override;
    void startPass(Texture* source, Texture* target) override;
    void work(Texture* source, Texture* target) override;

    /// Box radii in pixels. Each process divides radiusX by `scaleX` and holds both between 0 and
    /// three times the longer side of the Map, and the members keep the result.
    float radiusX = 0.0f, radiusY = 0.0f;
    std::int32_t iterations = 3;  ///< 3 for three boxes; any other value gives two

    // A run's own values.
    std::int32_t mapOffsetX = 0, mapOffsetY = 0;
    std::int32_t sourceOriginX = 0, sourceOriginY = 0;
    std::uint32_t mapEdgeX = 0, mapEdgeY = 0;
    P mapFill{};
    /// The horizontally blurred picture with a margin above and below. Made by the first run and
    /// kept, at that size, to the end of the object.
    std::unique_ptr<Texture> temp;
    std::int32_t savedX0 = 0, savedX1 = 0, savedY0 = 0, savedY1 = 0;  ///< the window as given
    std::uint32_t copyBack = 0;                                       ///< always 0
    std::int32_t width = 0, height = 0;  ///< the larger of the Map's and the source's

private:
    void settleRadii();
    void save(const Texture& source, const Texture& target);
    void restoreWindow();
    bool prepareTemp(const Texture& source);
    std::int32_t margin() const;
    BoxPlan planX(const Texture& source) const;
    BoxPlan planY(const Texture& target) const;
    /// Whether the rows that pass 1 reads beyond the source's are all alike, above as below.
    bool marginIsFlat(const Texture& source) const;
    /// The rows that pass 0 makes: where the margin is flat, one of it at either end.
    LineRange rowsBetween(const Texture& source) const;
    void blurX(const Texture& source);
    void blurY(const Texture& source, Texture& target);

    bool covered_ = false;  ///< pass 0 writes all that pass 1 reads
};

/// 14-bit fixed-point weights and integer sums; every box rounds to a whole raw value. Of the
/// integer pixel it can blur the components named by `Mask` (15, 7, 1, 2, 4 or 8; bit 0 is red)
/// and leave the others of the Map alone, unless both radii are 0: then whole pixels are copied.
template <class P, std::uint32_t Mask = 15>
class BlurRGBAGauss : public GaussSampler<P, Mask, BlurArithmetic::Fixed> {};

/// The same for the channel of the integer pixel.
class BlurIntGauss : public GaussSampler<ChannelInt, 1, BlurArithmetic::Fixed> {};

/// Float weights and sums; every box truncates to the pixel's storage type.
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
