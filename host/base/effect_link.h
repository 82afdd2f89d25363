// The state that a clone may write to the effect it was cloned from.

#pragma once

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
    FrameGeometry geometry() const;
    void setGeometry(const FrameGeometry& geometry);

    // On the user-interface thread, for the effect that owns the link.

    /// The on-screen controls of `effect` follow the geometry that clones report. Null ends that;
    /// the effect's destructor has to do so if nothing else has.
    void follow(VxDsEffect* effect);
    /// The input's geometry, which the controls now have.
    PictureGeometry takeInput();

private:
    class UpdateTask;
    friend void reportGeometry(const std::shared_ptr<EffectLink>& link,
                               const FrameGeometry& geometry);

    bool needsUpdate(const FrameGeometry& geometry);
    void endUpdate();
    void updateControls();

    mutable std::mutex mutex_;
    FrameGeometry geometry_;
    /// What the controls have.
    PictureGeometry taken_;
    bool followed_ = false;
    /// A task to update the controls has been posted and has not run.
    bool pending_ = false;
    /// For the user-interface thread alone, without the lock.
    VxDsEffect* effect_ = nullptr;
};

/// For clones, on any thread: stores the geometry. If the on-screen controls follow it and have
/// another input rectangle, has the user-interface thread update them.
void reportGeometry(const std::shared_ptr<EffectLink>& link, const FrameGeometry& geometry);

}  // namespace ruvex
