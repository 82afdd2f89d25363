#include "adapters/openfx/describe.h"

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

template <std::size_t Count>
void requireStrings(const Properties& properties, const char* name,
                    const char* const (&values)[Count]) {
    for (std::size_t i = 0; i < Count; ++i) {
        properties.requireString(name, values[i], static_cast<int>(i));
    }
}

void setLabels(const Properties& effect) {
    effect.requireString(kOfxPropLabel, "V_Ruvex");
    effect.setString(kOfxPropShortLabel, "V_Ruvex");
    effect.setString(kOfxPropLongLabel, "V_Ruvex Faulty Television");
    effect.setString(kOfxImageEffectPluginPropGrouping, "Television");
    effect.setString(kOfxPropPluginDescription, "Makes the picture look like faulty television");
}

/// Hosts know fewer or more of these; one that is refused keeps the host's default.
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
    requireStrings(clip, kOfxImageEffectPropSupportedComponents, kComponents);
    clip.setInt(kOfxImageEffectPropSupportsTiles, 0);
    return clip;
}

}  // namespace

OfxStatus describe(const Action& action) {
    const Properties effect = propertiesOf(action.host, action.effect);
    setLabels(effect);
    requireStrings(effect, kOfxImageEffectPropSupportedContexts, kContexts);
    requireStrings(effect, kOfxImageEffectPropSupportedPixelDepths, kDepths);
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
