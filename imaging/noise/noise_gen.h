// A picture of position noise with one channel.

#pragma once

#include "imaging/img_proc.h"
#include "imaging/noise/noise_rows.h"
#include "imaging/texture.h"
#include "imaging/window_stack.h"

namespace ruvex {

/// Fills the window with hash noise from `seed`, softened by a blur where a blur size is above 0.
/// `interrupt` should be set, for it is how want of memory shows.
class VxNoiseGen : public VxImgProc1<VxTexture<ChannelInt>>,
                   public VxIPWindowStack,
                   public VxNoisyBastard {
public:
    VxNoiseGen() : VxIPWindowStack(this) {}

    void pre() override;
    void run() override;
    void post() override;

    VxTexture<ChannelInt> work;  ///< the noise before its blur; empty without one
    bool clampHigh = false;      ///< hold values to the type's maximum: none is above it
    bool clampLow = false;       ///< values below 0 become 0
    bool blurring = false;       ///< set for a run by `pre`
    float blurX = 0.0f;          ///< blur size in pixels, held to twice the Map's by `pre`
    float blurY = 0.0f;
    float offset = 0.0f;  ///< added to every value
    float scale = 0.0f;   ///< the value of a full hash
};

/// Grows a processor's window by the reach of a blur and gives `work` a buffer for it. Sizes are in
/// pixels, `sizeX` before the pixel aspect.
template <class P>
void prepareSoftNoise(VxImgProc& processor, VxTexture<P>& work, float sizeX, float sizeY);

}  // namespace ruvex
