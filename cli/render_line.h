// A clip's frames through the effect: reading, rendering and writing at the same time.

#pragma once

#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <set>

#include "cli/frame_renderer.h"
#include "cli/frame_ring.h"

namespace ruvex::cli {

/// Which frames are to be made: a range, less those that are there already.
struct FramesToMake {
    FrameRange range;
    std::set<std::int64_t> made{};
    bool endless = false;  ///< The input may end before the range does, and the render with it.

    /// How many; nothing if that shows at the end.
    std::optional<std::int64_t> count() const {
        if (endless) return std::nullopt;
        return range.last - range.first + 1 - static_cast<std::int64_t>(made.size());
    }
};

/// One thread reads, as many render as the job has jobs, and the caller's writes. What comes out
/// does not depend on how many there are.
class RenderLine {
public:
    /// Takes the result of frame `number`. Throws what ends the render.
    using Write = std::function<void(std::int64_t number, const media::Frame& result)>;

    /// `job` and `plan` are to outlive this. Throws as FrameRenderer's constructor does.
    RenderLine(const RenderJob& job, const RenderPlan& plan, std::shared_ptr<SharedClip> clip);

    /// Hands over the results in the order of their numbers; all frames before one that fails.
    /// False if it was told to stop before the last. Throws what the frame failed with, with the
    /// command that repeats it, and whatever `write` throws.
    bool run(const FramesToMake& frames, const Write& write);

private:
    void read(const FramesToMake& frames, FrameRing& ring);
    /// False at the end of a stream.
    bool readNext(const FramesToMake& frames, std::int64_t number, media::Frame& frame);
    void render(FrameRenderer& renderer, FrameRing& ring);
    bool makeResult(FrameRenderer& renderer, FrameSlot& slot, media::Frame& rendered);

    const RenderJob& job_;
    const RenderPlan& plan_;
    std::shared_ptr<SharedClip> clip_;
    std::list<FrameRenderer> renderers_;  ///< One a job.
};

}  // namespace ruvex::cli
