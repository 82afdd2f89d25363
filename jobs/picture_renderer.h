// The effect applied to pictures: whole frames, or fields of them.

#pragma once

#include <memory>
#include <stop_token>

#include "jobs/clip_input.h"
#include "jobs/render_plan.h"
#include "runtime/effect_session.h"

namespace ruvex::jobs {

/// One picture to render. It fills the project's frame, whatever its size.
struct PictureTask {
    std::int64_t frame = 0;  ///< The frame that it is or belongs to, for messages.
    double seconds = 0.0;
    media::Frame& source;          ///< The effect may change it.
    ComPtr<IDSImage> mask;         ///< Of the source's size; may be null.
    std::optional<Region> region;  ///< In rows and columns of the source.
};

/// One effect with the parameters of a plan. One thread uses a renderer at a time.
class PictureRenderer {
public:
    /// `input` serves other frames of the clip. Throws JobError for what the effect does not take,
    /// and runtime::Error.
    PictureRenderer(const RenderPlan& plan, std::shared_ptr<ClipInput> input, std::stop_token stop);

    /// Another renderer with a clone of the effect as it is now.
    PictureRenderer clone(const std::shared_ptr<ClipInput>& input) const;

    /// Renders into `result`, whose size and depth are the picture's; what lies outside the region
    /// becomes 0. False if a stop was requested; the result is then unfinished. Throws
    /// media::MediaError; FrameOutOfMemory; and runtime::Error, which names the frame.
    bool render(const PictureTask& task, media::Frame& result);

    /// The pictures that the effect keeps from one render to the next.
    media::HeldMemory held() const;

private:
    PictureRenderer(runtime::Project project, std::shared_ptr<ClipInput> input,
                    std::stop_token stop, runtime::EffectSession session);

    void renderPicture(const PictureTask& task, media::Frame& result);

    runtime::Project project_;
    std::shared_ptr<ClipInput> input_;
    std::stop_token stop_;
    runtime::EffectSession session_;
    // The frames of a task as images of the effect, without a copy.
    runtime::LentImage source_;
    runtime::LentImage result_;
};

}  // namespace ruvex::jobs
