#include "adapters/openfx/host_alpha.h"

namespace ruvex::openfx {

using adapters::HostAlpha;
using adapters::ResultAlpha;

HostAlpha alphaOf(const Properties& properties, HostAlpha fallback) {
    const std::string text = properties.getString(kOfxImageEffectPropPreMultiplication);
    if (text == kOfxImageOpaque) return HostAlpha::Opaque;
    if (text == kOfxImagePreMultiplied) return HostAlpha::Premultiplied;
    if (text == kOfxImageUnPreMultiplied) return HostAlpha::Straight;
    return fallback;
}

HostAlpha announcedAlpha(HostAlpha source, ResultAlpha result) {
    if (result == ResultAlpha::Opaque) return HostAlpha::Opaque;
    const bool becomesTransparent = result == ResultAlpha::Effect && source == HostAlpha::Opaque;
    return becomesTransparent ? HostAlpha::Premultiplied : source;
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
