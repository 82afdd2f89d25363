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

/// What an object family means for an effect that runs in it. The host's record of the effect goes
/// by these numbers.
enum class EffectKind : std::int32_t {
    Unknown = 0,  ///< the host has not asked yet
    Filter = 1,
    FilterWithoutPages = 2,
    WithoutInput = 3,
    Paint = 4,
    Transition = 5,
    Unused = 6,  ///< needs an input; no family has it
    OptionalInput = 7,
};

/// How a frame of two fields is rendered.
enum class FieldHandling : std::int32_t {
    None = 0,        ///< like any frame
    HalfHeight = 1,  ///< each field as an image of half height
    SkipRows = 2,    ///< processors leave out the other field's rows
};

/// What the crop parameters do to the input.
enum class CropMode : std::int32_t {
    None = 0,
    Window = 1,       ///< they set the crop window
    WindowEdges = 2,  ///< edge methods and the edge colour apply beyond it, too
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

    /// Whether the frame is one field, rendered as an image of half height.
    bool rendersHalfHeight() const {
        return fieldHandling == FieldHandling::HalfHeight && fieldSelector != 0;
    }

    EffectKind effectKind = EffectKind::Unknown;
    std::int32_t fieldSelector = 0;  ///< 0 whole frame, 1 first field, 2 second field
    FieldHandling fieldHandling = FieldHandling::None;
    float fieldScaleY = 1.0f;  ///< 0.5 for an image of half height
    CropMode cropMode = CropMode::None;
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
