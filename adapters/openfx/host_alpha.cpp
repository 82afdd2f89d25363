#include "adapters/openfx/host_alpha.h"

namespace ruvex::openfx {

using adapters::HostAlpha;

HostAlpha alphaOf(const Properties& properties, HostAlpha fallback) {
    const std::string text = properties.getString(kOfxImageEffectPropPreMultiplication);
    if (text == kOfxImageOpaque) return HostAlpha::Opaque;
    if (text == kOfxImagePreMultiplied) return HostAlpha::Premultiplied;
    if (text == kOfxImageUnPreMultiplied) return HostAlpha::Straight;
    return fallback;
}

const char* alphaText(HostAlpha alpha) {
    switch (alpha) {
        case HostAlpha::Opaque:
            return kOfxImageOpaque;
        case HostAlpha::Premultiplied:
            return kOfxImagePreMultiplied;
        case HostAlpha::Straight:
            break;
    }
    return kOfxImageUnPreMultiplied;
}

}  // namespace ruvex::openfx
