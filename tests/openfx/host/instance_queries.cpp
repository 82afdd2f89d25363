// Actions by which an application asks an instance something.

#include "tests/openfx/host/instance.h"

namespace ruvex::ofxhost {
namespace {

PropertyValues realsOf(const OfxRectD& rect) {
    return reals({rect.x1, rect.y1, rect.x2, rect.y2});
}

OfxRectD rectOf(const PropertySet& set, const std::string& name) {
    return {set.real(name, 0), set.real(name, 1), set.real(name, 2), set.real(name, 3)};
}

/// The name of a property that each clip has: a text of the interface with the clip's name.
std::string ofClip(const char* prefix, const std::string& clip) {
    return prefix + clip;
}

}  // namespace

std::vector<OfxRangeD> Instance::framesNeeded(double time) {
    PropertySet in(host());
    in.add(kOfxPropTime, reals({time}), Writer::Host);
    const std::string name =
        ofClip("OfxImageClipPropFrameRange_", kOfxImageEffectSimpleSourceClipName);
    PropertySet out(host());
    out.addGrowing(name, PropertyType::Double);
    if (call(kOfxImageEffectActionGetFramesNeeded, {&in, &out}) != kOfxStatOK) {
        return {{time, time}};
    }
    std::vector<OfxRangeD> ranges;
    const Property* property = out.find(name);
    const std::size_t count = property ? property->values.size() : 0;
    if (count % 2 != 0) host().fault("half a range of frames");
    for (std::size_t i = 0; i + 1 < count; i += 2) {
        ranges.push_back({out.real(name, i), out.real(name, i + 1)});
    }
    return ranges;
}

std::optional<OfxRectD> Instance::regionOfDefinition(double time, const OfxPointD& scale) {
    PropertySet in(host());
    in.add(kOfxPropTime, reals({time}), Writer::Host);
    in.add(kOfxImageEffectPropRenderScale, reals({scale.x, scale.y}), Writer::Host);
    PropertySet out(host());
    out.add(kOfxImageEffectPropRegionOfDefinition, realsOf({0, 0, 0, 0}));
    if (call(kOfxImageEffectActionGetRegionOfDefinition, {&in, &out}) != kOfxStatOK) return {};
    return rectOf(out, kOfxImageEffectPropRegionOfDefinition);
}

std::optional<OfxRectD> Instance::regionOfInterest(double time, const OfxRectD& region) {
    PropertySet in(host());
    in.add(kOfxPropTime, reals({time}), Writer::Host);
    in.add(kOfxImageEffectPropRenderScale, reals({1.0, 1.0}), Writer::Host);
    in.add(kOfxImageEffectPropRegionOfInterest, realsOf(region), Writer::Host);
    const std::string name = ofClip("OfxImageClipPropRoI_", kOfxImageEffectSimpleSourceClipName);
    PropertySet out(host());
    out.add(name, realsOf(region));
    if (call(kOfxImageEffectActionGetRegionsOfInterest, {&in, &out}) != kOfxStatOK) return {};
    return rectOf(out, name);
}

std::optional<RenderRecord::Fetch> Instance::identity(double time) {
    PropertySet in(host());
    in.add(kOfxPropTime, reals({time}), Writer::Host);
    in.add(kOfxImageEffectPropFieldToRender, text(kOfxImageFieldNone), Writer::Host);
    in.add(kOfxImageEffectPropRenderWindow, ints({0, 0, 1, 1}), Writer::Host);
    in.add(kOfxImageEffectPropRenderScale, reals({1.0, 1.0}), Writer::Host);
    PropertySet out(host());
    out.add(kOfxPropName, text(""));
    out.add(kOfxPropTime, reals({time}));
    if (call(kOfxImageEffectActionIsIdentity, {&in, &out}) != kOfxStatOK) return {};
    return RenderRecord::Fetch{out.text(kOfxPropName), out.real(kOfxPropTime)};
}

std::unique_ptr<PropertySet> Instance::clipPreferences() {
    auto out = std::make_unique<PropertySet>(host());
    const ClipSetup& source = setup_.source;
    for (const auto& clip : effect_->clips()) {
        const std::string& name = clip->name();
        out->add(ofClip("OfxImageClipPropComponents_", name), text(source.format.components));
        out->add(ofClip("OfxImageClipPropDepth_", name), text(source.format.depth));
        out->add(ofClip("OfxImageClipPropPAR_", name), reals({source.pixelAspect}));
    }
    out->add(kOfxImageEffectPropFrameRate, reals({source.frameRate}));
    out->add(kOfxImageClipPropFieldOrder, text(source.fieldOrder));
    out->add(kOfxImageEffectPropPreMultiplication, text(source.format.premultiplication));
    out->add(kOfxImageClipPropContinuousSamples, ints({0}));
    out->add(kOfxImageEffectFrameVarying, ints({0}));
    call(kOfxImageEffectActionGetClipPreferences, {nullptr, out.get()});
    return out;
}

}  // namespace ruvex::ofxhost
