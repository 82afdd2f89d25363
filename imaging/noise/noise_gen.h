// Generates a one-channel picture of hash noise.

#pragma once

#include "imaging/img_proc.h"
#include "imaging/noise/noise_rows.h"
#include "imaging/texture.h"
#include "imaging/window_stack.h"

namespace ruvex {

/// Fills the window with hash noise (see noise_rows.h) from `seed`, blurred if a blur size is above
/// 0. Set `interrupt`: a lack of memory is reported through it alone.
class VxNoiseGen : public VxImgProc1<VxTexture<ChannelInt>>,
                   public VxIPWindowStack,
                   public VxNoisyBastard {
public:
    VxNoiseGen() : VxIPWindowStack(this) {}

    void pre() override;
    void run() override;
    void post() override;

    VxTexture<ChannelInt> work;  ///< the noise before the blur; empty without a blur
    bool clampHigh = false;      ///< no effect: no value exceeds the type's maximum
    bool clampLow = false;       ///< values below 0 become 0
    bool blurring = false;       ///< set by `pre` for the run
    float blurX = 0.0f;          ///< blur size in pixels; `pre` clamps it to twice the Map's size
    float blurY = 0.0f;
    float offset = 0.0f;  ///< added to every value
    float scale = 0.0f;   ///< hashes 0 .. 2^31 become values 0 .. scale
};

/// Extends a processor's window by the blur sizes on all sides and allocates `work` for it. Sizes
/// are in pixels; `sizeX` is divided by the pixel aspect here. If out of memory, raises that on the
/// processor's `interrupt`.
template <class P>
void prepareSoftNoise(VxImgProc& processor, VxTexture<P>& work, float sizeX, float sizeY);

}  // namespace ruvex
