// Adds signed noise to a picture: the snow of a weak signal.

#pragma once

#include <cstdint>

#include "imaging/img_proc.h"
#include "imaging/noise/noise_rows.h"
#include "imaging/texture.h"
#include "stages/grain_shape.h"

namespace ruvex {

/// Adds a random value to each pixel (Grey) or to each of its components (Colour). A dead band
/// around 0 makes the grain sparse without making it weaker. A softness above 0 blurs the noise.
/// The value depends only on the seed and the pixel's position. Source and target may be the same
/// texture.
template <class P>
class VxRGBNoiseProc : public VxImgProc2<VxTexture<P>, VxTexture<P>>, public VxNoisyBastard {
public:
    enum class Mode : std::int32_t { Grey = 0, Colour = 1 };

    void pre() override;
    void run() override;
    void post() override;

    bool alpha = false;       ///< the fourth component gets noise too
    bool blurring = false;    ///< set by `pre` for the run
    float sparseness = 0.0f;  ///< the dead band as a fraction of the range; 1 and above: no noise
    /// The blurred noise; empty if it is blurred along X only, a few rows at a time.
    VxTexture<ChannelInt> greyNoise;
    VxTexture<RgbaInt> colourNoise;
    Mode mode = Mode::Colour;
    /// For red, green, blue, alpha: blur sizes in pixels, and the noise's range in fractions of
    /// white.
    float softX[4] = {};
    float softY[4] = {};
    float amountMin[4] = {-0.05f, -0.05f, -0.05f, -0.05f};
    float amountMax[4] = {0.05f, 0.05f, 0.05f, 0.05f};

private:
    // The smallest and largest noise of a component, raw values.
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
    template <class Tile>
    void addTile(const Tile& tile, std::int32_t left, Span rows, const GrainShape& shape);
    template <class Noise>
    void addToRow(std::int32_t y, const GrainShape& shape, Noise noise);
};

extern template class VxRGBNoiseProc<Rgba8>;
extern template class VxRGBNoiseProc<RgbaS214>;

}  // namespace ruvex
