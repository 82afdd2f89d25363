#include "adapters/openfx/clip_actions.h"

#include <cmath>

#include "adapters/openfx/host_alpha.h"
#include "adapters/openfx/instance.h"

namespace ruvex::openfx {
namespace {

using adapters::HostAlpha;

std::optional<OfxRectD> regionFor(const Action& action) {
    const double time = action.in.getDouble(kOfxPropTime, 0.0);
    return Instance(action).regionAt(time);
}

}  // namespace

OfxStatus regionOfDefinition(const Action& action) {
    const auto region = regionFor(action);
    if (!region) return kOfxStatReplyDefault;
    action.out.setRectD(kOfxImageEffectPropRegionOfDefinition, *region);
    return kOfxStatOK;
}

OfxStatus regionsOfInterest(const Action& action) {
    const auto region = regionFor(action);
    if (!region) return kOfxStatReplyDefault;
    action.out.setRectD("OfxImageClipPropRoI_Source", *region);
    return kOfxStatOK;
}

OfxStatus clipPreferences(const Action& action) {
    const Instance instance(action);
    const HostClip source = instance.source();
    const Properties& clip = source.properties();
    constexpr double kAnyTime = 0.0;
    const HostAlpha alpha = announcedAlpha(alphaOf(clip, HostAlpha::Premultiplied),
                                           instance.values().resultAlphaAt(kAnyTime));
    action.out.setString(kOfxImageEffectPropPreMultiplication, alphaText(alpha));
    action.out.setInt(kOfxImageEffectFrameVarying, 1);
    return kOfxStatOK;
}

}  // namespace ruvex::openfx
