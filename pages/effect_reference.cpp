#include "pages/effect_reference.h"

#include <utility>

namespace ruvex {

void EffectReference::connect(IUnknown* object, const GUID& classId) {
    release();
    void* found = nullptr;
    if (!object || FAILED(object->QueryInterface(classId, &found)) || !found) return;
    object_ = object;
    // The query took a reference for VxDsEffect, which can't release it; object_ holds one.
    object->Release();
    effect_ = static_cast<VxDsEffect*>(found);
}

void EffectReference::beginOverlay() {
    if (!effect_ || overlayUsed_ || !effect_->hasOverlay()) return;
    // Set before the call, which may close the page: that ends the use.
    overlayUsed_ = true;
    const ComPtr<IUnknown> kept = object_;
    effect_->beginOverlay(kept.get());
}

void EffectReference::release() {
    VxDsEffect* const effect = std::exchange(effect_, nullptr);
    if (std::exchange(overlayUsed_, false)) effect->endOverlay();
    object_.reset();
}

}  // namespace ruvex
