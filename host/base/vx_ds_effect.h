// Base class of this family's image effects, in addition to the host's base classes.

#pragma once

#include <cstdint>
#include <memory>

#include "host/base/effect_link.h"
#include "host/base/overlay_use.h"
#include "host/base/parameter_values.h"
#include "imaging/interruption.h"
#include "sdk/com/com.h"

namespace ruvex {

/// The kind of effect, which follows from the object family under which the host runs it. The
/// numbers appear in the host's record of the effect.
enum class EffectKind : std::int32_t {
    Unknown = 0,  ///< the host has not set a family yet
    Filter = 1,
    FilterWithoutPages = 2,
    WithoutInput = 3,
    Paint = 4,
    Transition = 5,
    Unused = 6,  ///< needs an input; no family uses it
    OptionalInput = 7,
};

/// How the fields of an interlaced frame are rendered.
enum class FieldHandling : std::int32_t {
    None = 0,        ///< fields are not treated separately
    HalfHeight = 1,  ///< each field as an image of half height
    SkipRows = 2,    ///< processors skip the other field's rows
};

/// The effect of the crop parameters on the input.
enum class CropMode : std::int32_t {
    None = 0,
    Window = 1,       ///< set the crop window
    WindowEdges = 2,  ///< also set the edge methods and the edge colour outside the window
};

/// A rectangle in the output, inclusive.
struct PixelRegion {
    std::int32_t x0 = 0, x1 = 0, y0 = 0, y1 = 0;

    friend bool operator==(const PixelRegion&, const PixelRegion&) = default;
};

struct PixelOffset {
    std::int32_t x = 0, y = 0;
};

/// The crop of a frame.
struct CropState {
    /// Fractions of the picture from the left and from row 0; not clamped.
    float left = 0.0f, right = 0.0f, bottom = 0.0f, top = 0.0f;
    /// Red, green, blue and alpha, 0..1. Alpha is always 0.
    float edgeColour[4] = {};
};

/// Holds the parameters, and the render state that Execute sets and its processors read. A copy
/// does not copy the state of the user interface and of a frame in progress.
class VxDsEffect {
public:
    // Pages know this class alone and call these functions through their places in the table of
    // virtual functions, so that the order is fixed.

    /// An offset for the frame at `time`, in pixels.
    virtual PixelOffset frameOffset(double time);
    /// Connects the on-screen controls to the tool, after the tool has been shown.
    virtual void linkOverlay() = 0;
    /// A property page has come to the front. `page` is its name: "crop" shows the crop box, any
    /// other name and null hide it. The numbers are not used.
    virtual void pageActivated(const char* page, std::int32_t a, std::int32_t b) = 0;
    /// Passes the input's rectangle to the on-screen controls.
    virtual void updateOverlay() = 0;
    /// The status for a host that tries to aggregate the effect.
    virtual HRESULT aggregationResult() = 0;
    /// A further check of what the host has set, at the end of Verify; 0 is success.
    virtual HRESULT extraVerify() = 0;

    /// Whether pages of this effect count as users of the on-screen controls: not of paint effects.
    bool hasOverlay() const { return effectKind != EffectKind::Paint; }
    /// Called by a page that edits `object`: counts it as a user of the on-screen controls and
    /// shows them. 0, E_POINTER for null, or the error if the tool can't be shown or connected;
    /// such a page counts all the same. Nothing is counted for null and without an overlay.
    HRESULT beginOverlay(IUnknown* object);
    /// The page no longer uses the on-screen controls.
    void endOverlay();

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
    std::uint32_t infoFlags = 0;  ///< bit 0: the property pages have been added
    InterruptionRecord interruption;
    ParameterValues parameters;
    CropState crop;
    PixelRegion region;
    PixelOffset frameOffsetValue;
    FrameGeometry geometry;  ///< of the current Execute
    std::int32_t maskFlagA = 0;
    std::int32_t alphaMaskable = 0;  ///< nonzero: the channel mask applies to alpha too

    OverlayUse overlay;

    /// The geometry for the on-screen controls; written by this effect and its clones.
    std::shared_ptr<EffectLink> link;
    /// The link of the effect that this one was cloned from, or null.
    std::shared_ptr<EffectLink> sourceEffect;

protected:
    VxDsEffect();
    /// Creates a clone with the same render state, a new link, and `source` as its source effect.
    VxDsEffect(const VxDsEffect& source);
    VxDsEffect& operator=(const VxDsEffect&) = delete;
    /// Not virtual: an effect is deleted through its reference count, and `frameOffset` must be in
    /// the first slot of the virtual table for pages that only know this class.
    ~VxDsEffect() = default;
};

}  // namespace ruvex
