#include "host/base/vx_ds_effect.h"

#include "sdk/com/guarded.h"

namespace ruvex {

VxDsEffect::VxDsEffect() : link(std::make_shared<EffectLink>()) {}

VxDsEffect::VxDsEffect(const VxDsEffect& source)
    : effectKind(source.effectKind),
      fieldSelector(source.fieldSelector),
      fieldHandling(source.fieldHandling),
      fieldScaleY(source.fieldScaleY),
      cropMode(source.cropMode),
      capabilityFlags(source.capabilityFlags),
      infoFlags(source.infoFlags),
      parameters(source.parameters),
      crop(source.crop),
      region(source.region),
      frameOffsetValue(source.frameOffsetValue),
      // From the link: a clone of `source` may have updated it after the last frame of `source`.
      geometry(source.link->geometry()),
      maskFlagA(source.maskFlagA),
      alphaMaskable(source.alphaMaskable),
      link(std::make_shared<EffectLink>()),
      sourceEffect(source.link) {
    link->setGeometry(geometry);
}

HRESULT VxDsEffect::beginOverlay(IUnknown* object) {
    if (!object) return E_POINTER;
    if (!hasOverlay()) return S_OK;
    const HRESULT status = overlay.begin(*object, [this] {
        link->follow(this);
        return guarded([this] {
            linkOverlay();
            return S_OK;
        });
    });
    if (!overlay.tool()) link->follow(nullptr);
    return status;
}

void VxDsEffect::endOverlay() {
    overlay.end();
    if (!overlay.tool()) link->follow(nullptr);
}

PixelOffset VxDsEffect::frameOffset(double) {
    return {0, 0};
}

}  // namespace ruvex
