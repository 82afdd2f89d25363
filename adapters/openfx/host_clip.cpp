#include "adapters/openfx/host_clip.h"

#include <algorithm>
#include <cmath>

#include "adapters/openfx/regions.h"

namespace ruvex::openfx {

HostClip::HostClip(const Host& host, OfxImageEffectHandle effect, const char* name)
    : host_(host), properties_(host, nullptr) {
    OfxPropertySetHandle set = nullptr;
    if (host.effect->clipGetHandle(effect, name, &handle_, &set) != kOfxStatOK) handle_ = nullptr;
    if (!handle_) return;
    if (!set && host.effect->clipGetPropertySet(handle_, &set) != kOfxStatOK) set = nullptr;
    properties_ = Properties(host, set);
}

std::optional<OfxRectD> HostClip::regionOfDefinition(double time) const {
    OfxRectD region{};
    if (!handle_ || host_.effect->clipGetRegionOfDefinition(handle_, time, &region) != kOfxStatOK) {
        return {};
    }
    return region;
}

double HostClip::pixelAspect() const {
    return saneAspect(properties_.getDouble(kOfxImagePropPixelAspectRatio, 1.0));
}

FirstField HostClip::firstField() const {
    const std::string order = properties_.getString(kOfxImageClipPropFieldOrder);
    if (order == kOfxImageFieldLower) return adapters::RenderedLines::LowerField;
    if (order == kOfxImageFieldUpper) return adapters::RenderedLines::UpperField;
    return {};
}

double HostClip::heldTime(double time) const {
    const auto range = properties_.findPointD(kOfxImageEffectPropFrameRange);
    const bool known = range && std::isfinite(range->x) && range->y >= range->x;
    return known ? std::clamp(time, range->x, range->y) : time;
}

bool HostClip::hasTemporalAccess() const {
    return properties_.getInt(kOfxImageEffectPropTemporalClipAccess, 1) != 0;
}

}  // namespace ruvex::openfx
