// One frame, from the host's images to the finished picture.

#pragma once

#include <optional>

#include "effect/frame_host.h"
#include "effect/frame_parameters.h"
#include "effect/frame_scale.h"
#include "effect/player.h"
#include "effect/resolution.h"
#include "host/base/paint.h"
#include "host/base/parameter_reader.h"
#include "host/base/vx_ds_effect.h"
#include "imaging/texture.h"
#include "sdk/com/com_ptr.h"
#include "stages/frame_memory.h"
#include "stages/signal_parameters.h"

namespace ruvex {

/// Renders one frame of pixel type P. Execute creates it on the stack after it has set up the
/// effect's render state; for the next frame only `memory` is kept. The constructor's arguments
/// must outlive it.
template <class P>
class FrameDriver {
public:
    FrameDriver(VxDsEffect& effect, const FrameHost& host, const ParameterReader& reader,
                const FrameTime& time, FrameMemory<P>& memory);

    /// Renders the whole frame: the stage chain and the finishing steps, or only the cropped input
    /// if that is to be shown. Returns 0 or the error of `process`.
    HRESULT renderFrame();

private:
    using Texture = VxTexture<P>;

    // Before and after the chain.
    void wrapImages();
    void showCropped();
    void finish();
    void restoreMaskedChannels();
    void paint();
    void blankCropped();
    bool interrupted() { return interruptCheck(&effect_.interruption); }

    // The chain, and its steps in the order in which they run.
    HRESULT process();
    bool pictureVisible() const;
    void clearOutput();
    bool chooseSourceFrame();
    void blankOutput();
    void measureSignal();
    void scaleDown();
    void fishEye();
    void blur();
    void showSignal();
    void scaleUp();
    void scanLines();
    void releaseRepeat();

    bool reduced() const { return res() != 1.0f; }
    /// Resolution as a fraction.
    float res() const { return parameters().fraction(ParameterId::Resolution); }
    const FrameParameters& parameters() const { return *parameters_; }
    Texture& sampled() { return reduced() ? scaled_.result : outputTexture_; }

    VxDsEffect& effect_;
    const FrameHost& host_;
    ParameterReader reader_;
    FrameTime time_;
    FrameMemory<P>& memory_;
    std::optional<PixelRegion> region_;      // at full size
    std::optional<PixelRegion> workRegion_;  // at the work size

    FrameScale scale_;
    std::optional<FrameParameters> parameters_;
    TapePosition tape_;
    SignalParameters signal_;

    Texture outputTexture_;
    Texture inputTexture_;
    MaskTexture maskTexture_;
    ComPtr<IDSImage> repeatImage_;  // the input at another time, and its texture
    Texture repeatTexture_;
    ScaledBuffers<P> scaled_;
    Texture lensTexture_;
    Texture* source_ = nullptr;  // the input of the next stage
};

extern template class FrameDriver<Rgba8>;
extern template class FrameDriver<RgbaS214>;

}  // namespace ruvex
