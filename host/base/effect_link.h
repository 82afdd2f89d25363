// The state that a clone may write to the effect it was cloned from.

#pragma once

#include <mutex>

#include "host/base/picture_geometry.h"

namespace ruvex {

/// The geometry of the latest frame, which the on-screen controls use, shared by an effect and its
/// clones. It has a lock, since a clone renders on another thread, and is held by shared pointers,
/// since a clone may outlive its source.
class EffectLink {
public:
    FrameGeometry geometry() const {
        const std::lock_guard lock(mutex_);
        return geometry_;
    }
    void setGeometry(const FrameGeometry& geometry) {
        const std::lock_guard lock(mutex_);
        geometry_ = geometry;
    }

private:
    mutable std::mutex mutex_;
    FrameGeometry geometry_;
};

}  // namespace ruvex
