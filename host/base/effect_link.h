// What a clone may write into the effect that it was made from.

#pragma once

#include <mutex>

#include "host/base/picture_geometry.h"

namespace ruvex {

/// The geometry that an effect shows to its user, shared between the effect and its clones. A clone
/// renders on a thread of its own and may outlive its source, hence the lock and the shared
/// ownership.
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
