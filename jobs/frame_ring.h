// The queue between the threads of a pipeline: several frames at once, in order.

#pragma once

#include <array>
#include <condition_variable>
#include <cstdint>
#include <exception>
#include <mutex>
#include <vector>

#include "media/held_memory.h"

namespace ruvex::jobs {

/// What is done to each frame, in this order.
enum class Step { Read, Render, Write };

/// The place of one frame. Only the thread that has taken it may use it.
struct FrameSlot {
    std::int64_t number = 0;
    media::Frame* source = nullptr;  ///< The picture, as long as it is read or rendered.
    media::Frame* result = nullptr;  ///< As long as it is rendered or written.
    std::exception_ptr failure;      ///< Why there is no result; null where there is one.

private:
    friend class FrameRing;
    Step next = Step::Read;
};

/// Slots in a circle: each is read, rendered, written, and read again. Each step takes the frames
/// in the order of reading, however many threads work at it, so results come out in order. Any
/// thread.
///
/// The ring owns a fixed number of pictures, which bounds the memory and lets all of it serve
/// again: a frame keeps its source until it is rendered, and its result from then until it is
/// written. Reading waits for a source that is free, rendering for a result and for a frame that
/// was read.
class FrameRing {
public:
    /// `rendering` is the number of frames that are rendered at once, at least 1. On each side
    /// there are a picture for the thread that reads or writes, and one that waits, so that a
    /// thread does not wait for another's frame that takes longer.
    explicit FrameRing(int rendering)
        : sources_(static_cast<std::size_t>(rendering) + kBesideRendering),
          results_(sources_.size()),
          slots_(sources_.size() + results_.size()) {}

    /// Waits for the next slot of this step. Null when all frames have been taken for the step, and
    /// when the ring is closed.
    FrameSlot* take(Step step);

    /// Gives a slot back when the step that it was taken for is done.
    void pass(FrameSlot& slot);

    /// No more frames will be read. `unused` may be null, or the slot that was last taken for
    /// reading, if its frame does not exist.
    void end(FrameSlot* unused = nullptr);

    /// From now on take() gives null to everybody.
    void close();

    /// Whether all frames have been read and taken for writing.
    bool ended();

    /// Its pictures. For a caller that knows that no thread uses them.
    media::HeldMemory held() const;

private:
    static constexpr std::size_t kSteps = 3;
    static constexpr std::size_t kBesideRendering = 2;

    std::int64_t taken(Step step) const { return taken_[static_cast<std::size_t>(step)]; }
    /// The slot of a frame, counted in the order of reading.
    const FrameSlot& slotOf(std::int64_t frame) const {
        return slots_[static_cast<std::size_t>(frame) % slots_.size()];
    }
    bool sourceIsFree(std::int64_t frame) const;
    bool resultIsFree(std::int64_t frame) const;
    bool ready(Step step) const;
    bool over(Step step) const;

    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<media::Frame> sources_;
    std::vector<media::Frame> results_;
    std::vector<FrameSlot> slots_;
    std::array<std::int64_t, kSteps> taken_{};  ///< Frames that were taken for each step.
    bool ended_ = false;
    bool closed_ = false;
};

}  // namespace ruvex::jobs
