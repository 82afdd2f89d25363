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

/// Whether the frame that had the source of `frame` has been rendered.
bool FrameRing::sourceIsFree(std::int64_t frame) const {
    const std::int64_t before = frame - static_cast<std::int64_t>(sources_.size());
    return before < taken(Step::Write) || slotOf(before).next == Step::Write;
}

/// Whether the frame that had the result of `frame` has been written. Its slot may have been taken
/// for a later frame since, which is not rendered yet.
bool FrameRing::resultIsFree(std::int64_t frame) const {
    const std::int64_t before = frame - static_cast<std::int64_t>(results_.size());
    return before < 0 || (before < taken(Step::Write) && slotOf(before).next != Step::Write);
}

/// A step takes its next slot once the step before has taken that frame and finished it.
bool FrameRing::ready(Step step) const {
    const std::int64_t frame = taken(step);
    if (slotOf(frame).next != step) return false;
    if (step == Step::Read) return sourceIsFree(frame);
    if (step == Step::Render && !resultIsFree(frame)) return false;
    return frame < taken(static_cast<Step>(static_cast<int>(step) - 1));
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
    const auto frame = static_cast<std::size_t>(taken_[static_cast<std::size_t>(step)]++);
    FrameSlot& slot = slots_[frame % slots_.size()];
    if (step == Step::Read) slot.source = &sources_[frame % sources_.size()];
    if (step == Step::Render) slot.result = &results_[frame % results_.size()];
    return &slot;
}

void FrameRing::pass(FrameSlot& slot) {
    {
        const std::lock_guard lock(mutex_);
        slot.next = after(slot.next);
    }
    changed_.notify_all();
}

void FrameRing::end(FrameSlot* unused) {
    {
        const std::lock_guard lock(mutex_);
        ended_ = true;
        if (unused) --taken_[static_cast<std::size_t>(Step::Read)];
    }
    changed_.notify_all();
}

bool FrameRing::ended() {
    const std::lock_guard lock(mutex_);
    return ended_ && taken(Step::Write) >= taken(Step::Read);
}

media::HeldMemory FrameRing::held() const {
    media::HeldMemory held;
    for (const media::Frame& frame : sources_) held.add(frame);
    for (const media::Frame& frame : results_) held.add(frame);
    return held;
}

void FrameRing::close() {
    {
        const std::lock_guard lock(mutex_);
        closed_ = true;
    }
    changed_.notify_all();
}

}  // namespace ruvex::jobs
