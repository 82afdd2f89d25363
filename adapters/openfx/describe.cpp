#include "adapters/openfx/describe.h"

#include <span>

#include "adapters/openfx/declare_parameters.h"
#include "adapters/openfx/failure.h"
#include "adapters/openfx/overlay_entry.h"
#include "adapters/openfx/parameter_list.h"

namespace ruvex::openfx {
namespace {

constexpr const char* kContexts[] = {kOfxImageEffectContextFilter, kOfxImageEffectContextGeneral};
constexpr const char* kDepths[] = {kOfxBitDepthByte, kOfxBitDepthShort, kOfxBitDepthFloat};
constexpr const char* kComponents[] = {kOfxImageComponentRGBA, kOfxImageComponentRGB,
                                       kOfxImageComponentAlpha};

/// Sets those of the values that the host takes, one after the other. Throws Failure with
/// kOfxStatErrMissingHostFeature if it takes none of them.
void setList(const Properties& properties, const char* name, std::span<const char* const> values) {
    int count = 0;
    for (const char* value : values) {
        if (properties.setString(name, value, count)) ++count;
    }
    if (count > 0) return;
    throw Failure(kOfxStatErrMissingHostFeature, std::string("the host refuses ") + name);
}

/// The same for a list of which the host has to take the first value.
void setListWithFirst(const Properties& properties, const char* name,
                      std::span<const char* const> values) {
    properties.requireString(name, values.front());
    setList(properties, name, values);
}

void setLabels(const Properties& effect) {
    effect.setString(kOfxPropLabel, "V_Ruvex");
    effect.setString(kOfxPropShortLabel, "V_Ruvex");
    effect.setString(kOfxPropLongLabel, "V_Ruvex Faulty Television");
    effect.setString(kOfxImageEffectPluginPropGrouping, "Television");
    effect.setString(kOfxPropPluginDescription, "Makes the picture look like faulty television");
}

/// All of these are optional: a property that the host refuses keeps the host's default.
void setAbilities(const Properties& effect) {
    effect.setString(kOfxImageEffectPluginRenderThreadSafety, kOfxImageEffectRenderFullySafe);
    // The effect runs threads of its own, on which its pictures must not depend.
    effect.setInt(kOfxImageEffectPluginPropHostFrameThreading, 0);
    effect.setInt(kOfxImageEffectPluginPropSingleInstance, 0);
    // A picture's noise depends on the whole of it, so parts of it cost as much as all.
    effect.setInt(kOfxImageEffectPropSupportsTiles, 0);
    effect.setInt(kOfxImageEffectPropSupportsMultiResolution, 1);
    effect.setInt(kOfxImageEffectPropTemporalClipAccess, 1);
    effect.setInt(kOfxImageEffectPluginPropFieldRenderTwiceAlways, 1);
    effect.setInt(kOfxImageEffectPropSupportsMultipleClipDepths, 0);
    effect.setInt(kOfxImageEffectPropSupportsMultipleClipPARs, 0);
    // The form of the output's alpha depends on it.
    effect.setString(kOfxImageEffectPropClipPreferencesSlaveParam,
                     ownParameter(Purpose::ResultAlpha).name);
}

Properties defineClip(const Action& action, const char* name) {
    OfxPropertySetHandle handle = nullptr;
    const OfxStatus status = action.host.effect->clipDefine(action.effect, name, &handle);
    if (status != kOfxStatOK || !handle) {
        throw Failure(kOfxStatErrMissingHostFeature,
                      std::string("the host refuses the clip ") + name);
    }
    const Properties clip(action.host, handle);
    setListWithFirst(clip, kOfxImageEffectPropSupportedComponents, kComponents);
    clip.setInt(kOfxImageEffectPropSupportsTiles, 0);
    return clip;
}

}  // namespace

OfxStatus describe(const Action& action) {
    const Properties effect = propertiesOf(action.host, action.effect);
    setLabels(effect);
    setListWithFirst(effect, kOfxImageEffectPropSupportedContexts, kContexts);
    setList(effect, kOfxImageEffectPropSupportedPixelDepths, kDepths);
    setAbilities(effect);
    declareOverlay(action.host, effect);
    return kOfxStatOK;
}

OfxStatus describeInContext(const Action& action) {
    const Properties source = defineClip(action, kOfxImageEffectSimpleSourceClipName);
    source.setInt(kOfxImageEffectPropTemporalClipAccess, 1);
    source.setString(kOfxImageClipPropFieldExtraction, kOfxImageFieldBoth);
    defineClip(action, kOfxImageEffectOutputClipName);
    declareParameters(action);
    return kOfxStatOK;
}

}  // namespace ruvex::openfx
