// The frames of a clip on their way from the reader to the writer, several of them at once.

#pragma once

#include <array>
#include <condition_variable>
#include <cstdint>
#include <exception>
#include <mutex>
#include <vector>

#include "media/frame.h"

namespace ruvex::cli {

/// What is done to each frame, in this order.
enum class Step { Read, Render, Write };

/// The place of one frame. Whoever has taken it is the only one to touch it.
struct FrameSlot {
    std::int64_t number = 0;
    media::Frame source;
    media::Frame result;
    std::exception_ptr failure;  ///< Why there is no result; null where there is one.

private:
    friend class FrameRing;
    Step next = Step::Read;
};

/// A fixed number of slots that go round: read, rendered, written, and read again. Each step takes
/// the frames in one order, the order of reading, however many threads do it; so results come out
/// as frames went in. A step waits for the step before it, and reading waits for a slot to be
/// written: memory stays bounded. Any thread.
class FrameRing {
public:
    /// `slots` from 1 up; as many frames may be under way.
    explicit FrameRing(int slots) : slots_(static_cast<std::size_t>(slots)) {}

    /// The slot that is next for this step; waits until there is one. Null when all frames have
    /// been taken for it, and when the ring is closed.
    FrameSlot* take(Step step);

    /// The step that `slot` was taken for is done.
    void pass(FrameSlot& slot);

    /// There are no frames beyond those that were taken for reading.
    void end();

    /// Nobody gets anything any more.
    void close();

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

}  // namespace ruvex::cli
