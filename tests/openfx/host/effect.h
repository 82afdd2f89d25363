// An image effect: a description of one, or an instance.

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tests/openfx/host/clip.h"
#include "tests/openfx/host/parameter_set.h"

namespace ruvex::ofxhost {

/// The project that an instance lies in, in canonical coordinates.
struct ProjectSetup {
    OfxPointD size{64.0, 48.0};
    OfxPointD offset{0.0, 0.0};
    double pixelAspect = 1.0;
    double frameRate = 25.0;
    double duration = 100.0;
};

class Effect {
public:
    /// A description without anything described; `file` is the bundle.
    Effect(Host& host, const std::string& file);
    /// What a description in a context starts from.
    Effect(const Effect& description, const std::string& context);
    /// The objects of an instance.
    Effect(const Effect& description, const ProjectSetup& project);
    Effect(const Effect&) = delete;
    Effect& operator=(const Effect&) = delete;

    OfxImageEffectHandle handle() const { return handle_.get(); }
    Host& host() const { return properties.host(); }
    bool isInstance() const { return isInstance_; }

    /// Null if there is none of this name.
    Clip* clip(const std::string& name) const;
    const std::vector<std::unique_ptr<Clip>>& clips() const { return clips_; }
    Clip& defineClip(const std::string& name);

    PropertySet properties;
    ParameterSet parameters;

private:
    bool isInstance_ = false;
    std::vector<std::unique_ptr<Clip>> clips_;
    OwnHandle<HandleKind::Effect, OfxImageEffectHandle> handle_{this};
};

/// The render that a thread does: what its calls for images refer to.
struct CurrentRender {
    const Effect* effect = nullptr;
    double time = 0.0;
    OfxPointD scale{1.0, 1.0};
    std::shared_ptr<Image> output{};
    std::shared_ptr<RenderRecord> record{};
    /// The query from which on the answer is to stop; below 0 for never.
    int abortAt = -1;
};

/// That of the calling thread; null outside a render.
CurrentRender*& currentRender();

}  // namespace ruvex::ofxhost
