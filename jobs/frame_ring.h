// The queue between the threads of a pipeline: several frames at once, in order.

#pragma once

#include <array>
#include <condition_variable>
#include <cstdint>
#include <exception>
#include <mutex>
#include <vector>

#include "media/frame.h"

namespace ruvex::jobs {

/// What is done to each frame, in this order.
enum class Step { Read, Render, Write };

/// The place of one frame. Only the thread that has taken it may use it.
struct FrameSlot {
    std::int64_t number = 0;
    media::Frame source;
    media::Frame result;
    std::exception_ptr failure;  ///< Why there is no result; null where there is one.

private:
    friend class FrameRing;
    Step next = Step::Read;
};

/// A fixed number of slots in a circle: each is read, rendered, written, and read again. Each step
/// takes the frames in the order of reading, however many threads work at it, so results come out
/// in order. A step waits for the step before it, and reading waits for a free slot, which bounds
/// the memory. Any thread.
class FrameRing {
public:
    /// `slots` is at least 1: the most frames that are in the pipeline at once.
    explicit FrameRing(int slots) : slots_(static_cast<std::size_t>(slots)) {}

    /// Waits for the next slot of this step. Null when all frames have been taken for the step, and
    /// when the ring is closed.
    FrameSlot* take(Step step);

    /// Gives a slot back when the step that it was taken for is done.
    void pass(FrameSlot& slot);

    /// No more frames will be read.
    void end();

    /// From now on take() gives null to everybody.
    void close();

    /// Whether all frames have been read and taken for writing.
    bool ended();

private:
    static constexpr std::size_t kSteps = 3;

    std::int64_t taken(Step step) const { return taken_[static_cast<std::size_t>(step)]; }
    const FrameSlot& nextSlot(Step step) const {
        return slots_[static_cast<std::size_t>(taken(step)) % slots_.size()];
    }
    bool ready(Step step) const;
    bool over(Step step) const;

    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<FrameSlot> slots_;
    std::array<std::int64_t, kSteps> taken_{};  ///< Frames that were taken for each step.
    bool ended_ = false;
    bool closed_ = false;
};

}  // namespace ruvex::jobs
