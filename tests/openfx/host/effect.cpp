#include "tests/openfx/host/effect.h"

#include <algorithm>

#include "tests/openfx/host/host.h"

namespace ruvex::ofxhost {
namespace {

void addEffectProperties(PropertySet& set, const std::string& file) {
    set.add(kOfxPropType, text(kOfxTypeImageEffect), Writer::Host);
    set.add(kOfxPropLabel, text(""));
    set.add(kOfxPropShortLabel, text(""));
    set.add(kOfxPropLongLabel, text(""));
    set.add(kOfxPropVersion, ints({1, 0, 0}));
    set.add(kOfxPropVersionLabel, text(""));
    set.add(kOfxPropPluginDescription, text(""));
    set.add(kOfxImageEffectPluginPropGrouping, text(""));
    set.addGrowing(kOfxImageEffectPropSupportedContexts, PropertyType::String);
    set.addGrowing(kOfxImageEffectPropSupportedPixelDepths, PropertyType::String);
    set.addGrowing(kOfxImageEffectPropClipPreferencesSlaveParam, PropertyType::String);
    set.add(kOfxImageEffectPluginPropSingleInstance, ints({0}));
    set.add(kOfxImageEffectPluginRenderThreadSafety, text(kOfxImageEffectRenderInstanceSafe));
    set.add(kOfxImageEffectPluginPropHostFrameThreading, ints({1}));
    set.add(kOfxImageEffectPropSupportsMultiResolution, ints({1}));
    set.add(kOfxImageEffectPropSupportsTiles, ints({1}));
    set.add(kOfxImageEffectPropTemporalClipAccess, ints({0}));
    set.add(kOfxImageEffectPluginPropFieldRenderTwiceAlways, ints({1}));
    set.add(kOfxImageEffectPropSupportsMultipleClipDepths, ints({0}));
    set.add(kOfxImageEffectPropSupportsMultipleClipPARs, ints({0}));
    set.add(kOfxImageEffectInstancePropSequentialRender, ints({0}));
    set.add(kOfxPluginPropFilePath, text(file), Writer::Host);
    if (set.host().traits.overlays) {
        set.add(kOfxImageEffectPluginPropOverlayInteractV1,
                {PropertyValue(static_cast<void*>(nullptr))});
    }
}

void addEffectInstanceProperties(PropertySet& set, const ProjectSetup& project) {
    set.add(kOfxPropType, text(kOfxTypeImageEffectInstance), Writer::Host);
    set.add(kOfxPropInstanceData, {PropertyValue(static_cast<void*>(nullptr))});
    set.add(kOfxPropIsInteractive, ints({1}), Writer::Host);
    set.add(kOfxImageEffectPropProjectSize, reals({project.size.x, project.size.y}), Writer::Host);
    set.add(kOfxImageEffectPropProjectOffset, reals({project.offset.x, project.offset.y}),
            Writer::Host);
    set.add(kOfxImageEffectPropProjectExtent,
            reals({project.offset.x + project.size.x, project.offset.y + project.size.y}),
            Writer::Host);
    set.add(kOfxImageEffectPropProjectPixelAspectRatio, reals({project.pixelAspect}), Writer::Host);
    set.add(kOfxImageEffectPropFrameRate, reals({project.frameRate}), Writer::Host);
    set.add(kOfxImageEffectInstancePropEffectDuration, reals({project.duration}), Writer::Host);
}

}  // namespace

Effect::Effect(Host& host, const std::string& file) : properties(host), parameters(host) {
    addEffectProperties(properties, file);
}

Effect::Effect(const Effect& description, const std::string& context)
    : properties(description.properties), parameters(description.host()) {
    properties.add(kOfxImageEffectPropContext, text(context), Writer::Host);
}

Effect::Effect(const Effect& description, const ProjectSetup& project)
    : properties(description.properties), parameters(description.parameters), isInstance_(true) {
    addEffectInstanceProperties(properties, project);
    for (const auto& clip : description.clips_) {
        clips_.push_back(std::make_unique<Clip>(*clip, *this));
    }
}

Clip* Effect::clip(const std::string& name) const {
    const auto found = std::ranges::find(clips_, name, &Clip::name);
    return found == clips_.end() ? nullptr : found->get();
}

Clip& Effect::defineClip(const std::string& name) {
    return *clips_.emplace_back(std::make_unique<Clip>(host(), name));
}

CurrentRender*& currentRender() {
    static thread_local CurrentRender* current = nullptr;
    return current;
}

}  // namespace ruvex::ofxhost
