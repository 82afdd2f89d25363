#include "jobs/frame_ring.h"

namespace ruvex::jobs {
namespace {

constexpr Step after(Step step) {
    switch (step) {
        case Step::Read:
            return Step::Render;
        case Step::Render:
            return Step::Write;
        default:
            return Step::Read;
    }
}

}  // namespace

/// A step takes its next slot once the step before has taken that frame and finished it; reading
/// takes one once writing has.
bool FrameRing::ready(Step step) const {
    const std::int64_t end = step == Step::Read
                                 ? taken(Step::Write) + static_cast<std::int64_t>(slots_.size())
                                 : taken(static_cast<Step>(static_cast<int>(step) - 1));
    return taken(step) < end && nextSlot(step).next == step;
}

bool FrameRing::over(Step step) const {
    return closed_ || (ended_ && taken(step) >= taken(Step::Read));
}

FrameSlot* FrameRing::take(Step step) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return over(step) || ready(step); });
    if (over(step)) {
        return nullptr;
    }
    std::int64_t& place = taken_[static_cast<std::size_t>(step)];
    return &slots_[static_cast<std::size_t>(place++) % slots_.size()];
}

void FrameRing::pass(FrameSlot& slot) {
    {
        const std::lock_guard lock(mutex_);
        slot.next = after(slot.next);
    }
    changed_.notify_all();
}

void FrameRing::end() {
    {
        const std::lock_guard lock(mutex_);
        ended_ = true;
    }
    changed_.notify_all();
}

bool FrameRing::ended() {
    const std::lock_guard lock(mutex_);
    return ended_ && taken(Step::Write) >= taken(Step::Read);
}

void FrameRing::close() {
    {
        const std::lock_guard lock(mutex_);
        closed_ = true;
    }
    changed_.notify_all();
}

}  // namespace ruvex::jobs
