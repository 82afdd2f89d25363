// A clip's frames through the effect: reading, rendering and writing at the same time.

#pragma once

#include <functional>
#include <list>
#include <memory>
#include <stdexcept>
#include <stop_token>
#include <string>

#include "jobs/frame_renderer.h"
#include "jobs/frame_ring.h"
#include "jobs/frames_to_make.h"

namespace ruvex::jobs {

/// A frame that could not be read or rendered. The sentence says why.
class FrameFailure : public std::runtime_error {
public:
    FrameFailure(std::int64_t frame, const std::string& sentence)
        : std::runtime_error(sentence), frame_(frame) {}

    std::int64_t frame() const { return frame_; }

private:
    std::int64_t frame_;
};

/// One thread reads, plan.framesAtOnce threads render, and the caller's thread writes. The results
/// do not depend on the number of threads.
class Pipeline {
public:
    /// Takes the result of frame `number`. An exception ends the render.
    using Write = std::function<void(std::int64_t number, const media::Frame& result)>;

    /// `plan` has to outlive this. Throws as FrameRenderer's constructor does.
    Pipeline(const RenderPlan& plan, std::shared_ptr<SharedClip> clip, std::stop_token stop);

    /// Calls `write` for each frame in the order of their numbers, up to a frame that fails. False
    /// if a stop ended it before the last. Throws FrameFailure, and whatever `write` throws.
    /// To be called once.
    bool run(const FramesToMake& frames, const Write& write);

    /// What is held for pictures after `run`, by reading, rendering and the effect, but not by a
    /// decoder. Memory that serves frame after frame is all still held then.
    media::HeldMemory held() const;

private:
    void read(const FramesToMake& frames);
    /// False at the end of a stream.
    bool readNext(const FramesToMake& frames, std::int64_t number, media::Frame& frame);
    void render(FrameRenderer& renderer);

    std::shared_ptr<SharedClip> clip_;
    std::stop_token stop_;
    std::list<FrameRenderer> renderers_;  ///< One for each frame that is rendered at once.
    FrameRing ring_;
};

}  // namespace ruvex::jobs
