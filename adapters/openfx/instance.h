// One effect in the host.

#pragma once

#include <optional>

#include "adapters/openfx/action.h"
#include "adapters/openfx/host_clip.h"
#include "adapters/openfx/overlay/crop.h"
#include "adapters/openfx/parameter_values.h"
#include "adapters/openfx/regions.h"
#include "runtime/project.h"

namespace ruvex::openfx {

/// A view of an instance. It keeps nothing of its own: everything is the host's, and hosts make
/// instances for single frames. One object for each action; times are the host's.
class Instance {
public:
    Instance(const Host& host, OfxImageEffectHandle effect) : host_(host), effect_(effect) {}
    explicit Instance(const Action& action) : Instance(action.host, action.effect) {}

    const Host& host() const { return host_; }
    OfxImageEffectHandle handle() const { return effect_; }
    Properties properties() const { return propertiesOf(host_, effect_); }

    HostClip source() const { return {host_, effect_, kOfxImageEffectSimpleSourceClipName}; }
    HostClip output() const { return {host_, effect_, kOfxImageEffectOutputClipName}; }
    ParameterSet parameters() const { return {host_, effect_}; }
    ParameterValues values() const { return ParameterValues(parameters()); }

    /// Whether the host and the source give frames at other times.
    bool hasTemporalAccess() const;
    /// Whether the host wants the render to stop.
    bool aborted() const { return host_.effect->abort(effect_) != 0; }

    /// The lines that come first in a frame: those of the source, or else of the output.
    FirstField firstField() const;
    /// Frames per second: those of the source, or else of the project, or else kUsualRate.
    double frameRate() const;
    EffectClock clockAt(double time) const;

    /// The picture in canonical coordinates: the source's region of definition, or else the
    /// project's; nothing if neither can be a picture's.
    std::optional<OfxRectD> regionAt(double time) const;

    /// Every parameter that pictures depend on: ParameterValues::changesAt, over the look that is
    /// chosen if the host has not told the plug-in of the choice.
    std::vector<looks::ParameterChange> changesAt(double time, const EffectClock& clock) const;

    /// The frame that lengths refer to, for a picture of so many pixels at a scale of 1.
    runtime::Project projectAt(double time, int width, int height) const;

    // What the overlay needs. The picture is regionAt; its pixels are source().pixelAspect().
    Crop cropAt(double time) const;
    /// Sets those values of the crop that differ, in one step of the host's undo, named "Crop". A
    /// value with keys gets a key at the time.
    void setCrop(double time, const Crop& crop) const;
    bool hidesOverlayControls(double time) const;

private:
    Host host_;
    OfxImageEffectHandle effect_;
};

}  // namespace ruvex::openfx
