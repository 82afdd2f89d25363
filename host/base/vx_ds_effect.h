// What an image effect of this family holds beside the host's own classes.

#pragma once

#include <cstdint>
#include <memory>

#include "host/base/effect_link.h"
#include "host/base/overlay_use.h"
#include "host/base/parameter_values.h"
#include "imaging/interruption.h"
#include "sdk/com/com.h"

namespace ruvex {

/// The object family that an effect runs in, as far as it changes what is done.
enum EffectKind : std::int32_t {
    kKindFilter = 1,
    kKindWithoutInput = 3,
    kKindPaint = 4,
    kKindTransition = 5,
};

/// A place in the output, both ends inclusive.
struct PixelRegion {
    std::int32_t x0 = 0, x1 = 0, y0 = 0, y1 = 0;

    friend bool operator==(const PixelRegion&, const PixelRegion&) = default;
};

struct PixelOffset {
    std::int32_t x = 0, y = 0;
};

/// The crop at a frame's time.
struct CropState {
    /// Fractions of the picture from the left and from row 0; not clamped.
    float left = 0.0f, right = 0.0f, bottom = 0.0f, top = 0.0f;
    /// Red, green, blue and alpha in 0..1. Alpha stays 0.
    float edgeColour[4] = {};
};

/// The program's own base for image effects: the render state that an Execute sets up and its
/// processors read. A copy takes over everything but what belongs to the user interface and to a
/// frame that is under way.
class VxDsEffect {
public:
    /// An offset for the frame at `time`, in pixels.
    virtual PixelOffset frameOffset(double time);
    /// What to answer to a host that wants to aggregate the effect.
    virtual HRESULT aggregationResult() = 0;
    /// A further check of what the host has handed in; 0 is good.
    virtual HRESULT extraVerify() = 0;

    /// A page that inspects `object` wants the on-screen controls: 0, E_POINTER without an object,
    /// or why there is no tool. Paint has no controls, and its pages get 0.
    HRESULT beginOverlay(IUnknown* object);
    /// It wants them no more.
    void endOverlay() { overlay.end(); }

    std::int32_t effectKind = 0;
    std::int32_t fieldSelector = 0;  ///< 0 whole frame, 1 first field, 2 second field
    std::int32_t fieldHandling = 0;  ///< 1 fields as images of half height, 2 processors skip rows
    float fieldScaleY = 1.0f;        ///< 0.5 for an image of half height
    std::int32_t cropMode = 0;       ///< 0 none, 1 window, 2 window with edge methods and colour
    std::uint32_t capabilityFlags = 0;
    std::uint32_t infoFlags = 0;  ///< bit 0: the pages have been linked
    InterruptionRecord interruption;
    ParameterValues parameters;
    CropState crop;
    PixelRegion region;
    PixelOffset frameOffsetValue;
    FrameGeometry geometry;  ///< of the Execute that runs
    std::int32_t maskFlagA = 0;
    std::int32_t alphaMaskable = 0;  ///< the alpha channel takes part in the channel mask

    OverlayUse overlay;

    /// What this effect shows to its user; written by itself and by its clones.
    std::shared_ptr<EffectLink> link;
    /// The link of the effect that this one was cloned from, or null.
    std::shared_ptr<EffectLink> sourceEffect;

protected:
    VxDsEffect();
    /// A clone: the same render state, a link of its own, and `source` as its source.
    VxDsEffect(const VxDsEffect& source);
    VxDsEffect& operator=(const VxDsEffect&) = delete;
    /// Not virtual: an effect ends through its reference count, and pages that see no more than
    /// this class find `frameOffset` in the first slot.
    ~VxDsEffect() = default;
};

}  // namespace ruvex
