// A page's reference to the effect that it edits.

#pragma once

#include "host/base/vx_ds_effect.h"
#include "sdk/com/com_ptr.h"

namespace ruvex {

/// Keeps the inspected object, and its VxDsEffect, which has no reference count of its own.
/// Remembers whether the page counts as a user of the on-screen controls.
class EffectReference {
public:
    EffectReference() = default;
    EffectReference(const EffectReference&) = delete;
    EffectReference& operator=(const EffectReference&) = delete;
    ~EffectReference() { release(); }

    /// Refers to the effect behind `object` (may be null), which answers `classId` with its
    /// VxDsEffect. Releases the present effect first. Refers to nothing if the object is another.
    void connect(IUnknown* object, const GUID& classId);
    /// Ends the use of the on-screen controls, if it was counted, and releases the effect.
    void release();
    /// Counts the page as a user of the on-screen controls.
    void beginOverlay();

    VxDsEffect* effect() const { return effect_; }

private:
    ComPtr<IUnknown> object_;
    VxDsEffect* effect_ = nullptr;
    bool overlayUsed_ = false;
};

}  // namespace ruvex
