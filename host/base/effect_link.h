// The state that a clone may write to the effect it was cloned from.

#pragma once

#include <atomic>
#include <memory>
#include <mutex>

#include "host/base/picture_geometry.h"

namespace ruvex {

class VxDsEffect;

/// The geometry of the latest frame, which the on-screen controls use, shared by an effect and its
/// clones. It has a lock, since a clone renders on another thread, and is held by shared pointers,
/// since a clone may outlive its source.
class EffectLink {
public:
    FrameGeometry geometry() const {
        const std::lock_guard lock(mutex_);
        return geometry_;
    }
    /// Whether that is another geometry than before.
    bool setGeometry(const FrameGeometry& geometry);

    /// For the effect that owns the link, on the user-interface thread: its on-screen controls
    /// follow the geometry that clones report. Null ends that; the effect's destructor has to do so
    /// if nothing else has.
    void follow(VxDsEffect* effect);
    /// On the user-interface thread: has the controls take over the present geometry.
    void updateControls();

private:
    friend void reportGeometry(const std::shared_ptr<EffectLink>& link,
                               const FrameGeometry& geometry);

    mutable std::mutex mutex_;
    FrameGeometry geometry_;
    std::atomic<bool> followed_ = false;
    /// For the user-interface thread alone.
    VxDsEffect* effect_ = nullptr;
};

/// For clones, on any thread: stores the geometry. If it has changed and on-screen controls follow
/// it, has the user-interface thread update them.
void reportGeometry(const std::shared_ptr<EffectLink>& link, const FrameGeometry& geometry);

}  // namespace ruvex
