// Generates a colour picture of hash noise.

#pragma once

#include "imaging/img_proc.h"
#include "imaging/noise/noise_rows.h"
#include "imaging/texture.h"
#include "imaging/window_stack.h"

namespace ruvex {

/// The largest of four blur sizes (red, green, blue, alpha). Without `alpha` the last counts as 0.
float largestSoftness(const float (&sizes)[4], bool alpha);

/// Fills the window with hash noise (see noise_rows.h) from `seed`; each component has its own
/// scale and blur size. If all sizes are equal, the components are blurred together. Otherwise each
/// is blurred separately, and the result is 2 * noise - blurred noise. Set `interrupt`: a lack of
/// memory is reported through it alone.
class VxRGBANoiseGen : public VxImgProc1<VxTexture<RgbaInt>>,
                       public VxIPWindowStack,
                       public VxNoisyBastard {
public:
    VxRGBANoiseGen() : VxIPWindowStack(this) {}

    void pre() override;
    void run() override;
    void post() override;

    VxTexture<RgbaInt> work;  ///< the noise before the blur; empty without a blur
    bool clampHigh = false;   ///< no effect: no value exceeds the type's maximum
    bool alpha = false;       ///< fill the fourth component too; otherwise it keeps its value
    bool blurring = false;    ///< set by `pre` for the run
    /// For red, green, blue, alpha: blur sizes in pixels, and scales (see VxNoiseGen::scale).
    float blurX[4] = {};
    float blurY[4] = {};
    float scale[4] = {};

private:
    bool evenlySoft() const;
    void blurTogether();
    void blurApart();
};

}  // namespace ruvex
