// A clip of an instance in the host.

#pragma once

#include <optional>

#include "adapters/openfx/effect_time.h"
#include "adapters/openfx/properties.h"

namespace ruvex::openfx {

/// If the host does not have the clip, its handle is null, its properties have default values and
/// it has no region of definition.
class HostClip {
public:
    HostClip(const Host& host, OfxImageEffectHandle effect, const char* name);

    OfxImageClipHandle handle() const { return handle_; }
    const Properties& properties() const { return properties_; }

    /// In canonical coordinates; nothing if the host fails. May be anything.
    std::optional<OfxRectD> regionOfDefinition(double time) const;
    /// Of its pixels: 1 if the host gives none.
    double pixelAspect() const;
    /// The lines that come first, if its frames are interlaced.
    FirstField firstField() const;
    /// The time held to the frames that the clip has, if it says so.
    double heldTime(double time) const;
    bool hasTemporalAccess() const;

private:
    const Host host_;
    OfxImageClipHandle handle_ = nullptr;
    Properties properties_;
};

}  // namespace ruvex::openfx
