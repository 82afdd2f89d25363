#include "tests/openfx/host/clip.h"

#include "tests/openfx/host/host.h"

namespace ruvex::ofxhost {
namespace {

void addClipProperties(PropertySet& set, const std::string& name) {
    set.add(kOfxPropType, text(kOfxTypeClip), Writer::Host);
    set.add(kOfxPropName, text(name), Writer::Host);
    set.add(kOfxPropLabel, text(name));
    set.add(kOfxPropShortLabel, text(name));
    set.add(kOfxPropLongLabel, text(name));
    set.addGrowing(kOfxImageEffectPropSupportedComponents, PropertyType::String);
    set.add(kOfxImageEffectPropTemporalClipAccess, ints({0}));
    set.add(kOfxImageClipPropOptional, ints({0}));
    set.add(kOfxImageClipPropIsMask, ints({0}));
    set.add(kOfxImageClipPropFieldExtraction, text(kOfxImageFieldDoubled));
    set.add(kOfxImageEffectPropSupportsTiles, ints({1}));
}

void addClipInstanceProperties(PropertySet& set, const ClipSetup& setup) {
    const std::string none = kOfxImageComponentNone;
    set.add(kOfxImageEffectPropPixelDepth, text(setup.format.depth), Writer::Host);
    set.add(kOfxImageClipPropUnmappedPixelDepth, text(setup.format.depth), Writer::Host);
    set.add(kOfxImageEffectPropComponents, text(setup.connected ? setup.format.components : none),
            Writer::Host);
    set.add(kOfxImageClipPropUnmappedComponents,
            text(setup.connected ? setup.format.components : none), Writer::Host);
    set.add(kOfxImageEffectPropPreMultiplication, text(setup.format.premultiplication),
            Writer::Host);
    set.add(kOfxImagePropPixelAspectRatio, reals({setup.pixelAspect}), Writer::Host);
    set.add(kOfxImageEffectPropFrameRate, reals({setup.frameRate}), Writer::Host);
    set.add(kOfxImageEffectPropFrameRange, reals({setup.frameRange.min, setup.frameRange.max}),
            Writer::Host);
    set.add(kOfxImageClipPropFieldOrder, text(setup.fieldOrder), Writer::Host);
    set.add(kOfxImageClipPropConnected, ints({setup.connected}), Writer::Host);
    set.add(kOfxImageClipPropContinuousSamples, ints({0}), Writer::Host);
}

}  // namespace

Clip::Clip(Host& host, const std::string& name) : properties(host), name_(name) {
    addClipProperties(properties, name);
}

Clip::Clip(const Clip& descriptor, Effect& effect)
    : properties(descriptor.properties), name_(descriptor.name_), effect_(&effect) {
    connect({});
}

void Clip::connect(ClipSetup setup) {
    setup_ = std::move(setup);
    addClipInstanceProperties(properties, setup_);
}

std::shared_ptr<Image> Clip::makeImage(double time, const OfxPointD& scale,
                                       std::shared_ptr<RenderRecord> record) const {
    if (!setup_.connected || !setup_.picture) return nullptr;
    const std::optional<Raster> raster = setup_.picture(time, scale);
    if (!raster || isEmpty(raster->bounds)) return nullptr;
    ImageInfo info;
    info.regionOfDefinition = setup_.regionOfDefinition
                                  ? pixelsOf(*setup_.regionOfDefinition, scale, setup_.pixelAspect)
                                  : raster->bounds;
    info.scale = scale;
    info.pixelAspect = setup_.pixelAspect;
    const bool fielded = setup_.fieldOrder != kOfxImageFieldNone;
    info.field = fielded ? kOfxImageFieldBoth : kOfxImageFieldNone;
    info.identifier = name_ + " " + std::to_string(time);
    return std::make_shared<Image>(properties.host(), *raster, setup_.layout, info,
                                   std::move(record));
}

}  // namespace ruvex::ofxhost
