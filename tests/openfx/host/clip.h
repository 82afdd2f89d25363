// A clip of an effect, and where its pictures come from.

#pragma once

#include <functional>
#include <optional>
#include <string>

#include "tests/openfx/host/image.h"

namespace ruvex::ofxhost {

class Effect;

/// The pictures behind a clip.
struct ClipSetup {
    PixelFormat format{};
    /// In canonical coordinates; the function of the suite fails without it.
    std::optional<OfxRectD> regionOfDefinition{};
    double pixelAspect = 1.0;
    double frameRate = 25.0;
    OfxRangeD frameRange{0.0, 100.0};
    std::string fieldOrder = kOfxImageFieldNone;
    bool connected = true;
    ImageLayout layout{};
    /// The picture at a time and render scale, in the format above; nothing where the host has
    /// none. Called on the threads that render.
    std::function<std::optional<Raster>(double time, const OfxPointD& scale)> picture{};
};

class Clip {
public:
    /// A descriptor.
    Clip(Host& host, const std::string& name);
    /// The clip of an instance.
    Clip(const Clip& descriptor, Effect& effect);
    Clip(const Clip&) = delete;
    Clip& operator=(const Clip&) = delete;

    OfxImageClipHandle handle() const { return handle_.get(); }
    const std::string& name() const { return name_; }
    /// Null for a descriptor.
    Effect* effect() const { return effect_; }
    bool isOutput() const { return name_ == kOfxImageEffectOutputClipName; }

    const ClipSetup& setup() const { return setup_; }
    /// Connects other pictures; the properties follow.
    void connect(ClipSetup setup);

    /// A new image of the picture at this time; null where there is none.
    std::shared_ptr<Image> makeImage(double time, const OfxPointD& scale,
                                     std::shared_ptr<RenderRecord> record) const;

    PropertySet properties;

private:
    std::string name_;
    Effect* effect_ = nullptr;
    ClipSetup setup_;
    OwnHandle<HandleKind::Clip, OfxImageClipHandle> handle_{this};
};

}  // namespace ruvex::ofxhost
