// Signed noise added to a picture: the snow of a weak signal.

#pragma once

#include <cstdint>

#include "imaging/img_proc.h"
#include "imaging/noise/noise_rows.h"
#include "imaging/texture.h"
#include "stages/grain_shape.h"

namespace ruvex {

/// A fresh value for each pixel, or for each of its components, with a dead band around 0 that
/// makes the grain sparse without making it weaker. Grain is softened where a softness is above 0.
/// The value depends on a pixel's place alone. Source and target may be one texture.
template <class P>
class VxRGBNoiseProc : public VxImgProc2<VxTexture<P>, VxTexture<P>>, public VxNoisyBastard {
public:
    enum class Mode : std::int32_t { Grey = 0, Colour = 1 };

    void pre() override;
    void run() override;
    void post() override;

    bool alpha = false;       ///< the fourth component gets noise too
    bool blurring = false;    ///< set for a run by `pre`
    float sparseness = 0.0f;  ///< the dead band, 0 to 1; at 1 or more nothing is done
    /// The softened noise; empty where it is softened along rows alone, a few at a time.
    VxTexture<ChannelInt> greyNoise;
    VxTexture<RgbaInt> colourNoise;
    Mode mode = Mode::Colour;
    /// Red, green, blue, alpha: softness in pixels, range of the noise as fractions of white.
    float softX[4] = {};
    float softY[4] = {};
    float amountMin[4] = {-0.05f, -0.05f, -0.05f, -0.05f};
    float amountMax[4] = {0.05f, 0.05f, 0.05f, 0.05f};

private:
    // Ends of the noise of a component, in raw units.
    struct Range {
        float low, high;
    };
    Range greyRange() const;
    Range rangeOf(int component) const;
    GrainShape greyShape() const;
    GrainShape colourShape() const;
    float scaleOf(int component) const;

    bool softensRows() const;
    void makeGreyNoise();
    void makeColourNoise();
    void runHashes(const GrainShape& shape);
    template <class Noise>
    void runPicture(VxTexture<Noise>& picture, const GrainShape& shape);
    template <class Noise>
    void runSoftRows(const GrainShape& shape);
    template <class Noise>
    void addToRow(std::int32_t y, const GrainShape& shape, Noise noise);
};

extern template class VxRGBNoiseProc<Rgba8>;
extern template class VxRGBNoiseProc<RgbaS214>;

}  // namespace ruvex
