// Interruption of a walk over time, which may have millions of steps.

#pragma once

#include <cstdint>

#include "imaging/interruption.h"

namespace ruvex {

/// Asks once every few thousand steps of a walk whether the frame has been stopped. The result of a
/// walk that ended early has no meaning, and neither has the frame.
class WalkCheck {
public:
    /// Null: the walk is never stopped.
    explicit WalkCheck(InterruptionRecord* interrupt) : interrupt_(interrupt) {}

    /// Called at each step: whether the walk has to end.
    bool stops() { return ++steps_ % kStepsPerCheck == 0 && interruptCheck(interrupt_); }

private:
    // About a millisecond of the slowest walk.
    static constexpr std::uint32_t kStepsPerCheck = 4096;

    InterruptionRecord* interrupt_;
    std::uint32_t steps_ = 0;
};

}  // namespace ruvex
