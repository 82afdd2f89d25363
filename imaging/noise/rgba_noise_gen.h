// A picture of position noise in colour.

#pragma once

#include "imaging/img_proc.h"
#include "imaging/noise/noise_rows.h"
#include "imaging/texture.h"
#include "imaging/window_stack.h"

namespace ruvex {

/// The largest of the sizes (red, green, blue, alpha) that take part; alpha has size 0 where it is
/// not made.
float largestSoftness(const float (&sizes)[4], bool alpha);

/// Fills the window with hash noise from `seed`, each component with a scale and a softness of its
/// own. Components of one softness are blurred together; otherwise each is blurred by itself and
/// turned over about the unblurred noise. `interrupt` should be set, for it is how want of memory
/// shows.
class VxRGBANoiseGen : public VxImgProc1<VxTexture<RgbaInt>>,
                       public VxIPWindowStack,
                       public VxNoisyBastard {
public:
    VxRGBANoiseGen() : VxIPWindowStack(this) {}

    void pre() override;
    void run() override;
    void post() override;

    VxTexture<RgbaInt> work;  ///< the noise before its blur; empty without one
    bool clampHigh = false;   ///< hold values to the type's maximum: none is above it
    bool alpha = false;       ///< the fourth component is made too; otherwise it stays as it is
    bool blurring = false;    ///< set for a run by `pre`
    /// Red, green, blue, alpha: blur sizes in pixels and the values of a full hash.
    float blurX[4] = {};
    float blurY[4] = {};
    float scale[4] = {};

private:
    bool evenlySoft() const;
    void blurTogether();
    void blurApart();
};

}  // namespace ruvex
